#include "fieldhost/qml/recording/PlotCurve.h"

#include "fieldhost/jobs/Trace.h"

#include <cmath>

namespace Tavro::FieldHost {

namespace {

constexpr double s_shortest = 10; // s, so that a plot does not race at its beginning
constexpr int s_timeLabels = 6;

// the least of 1, 2, 5, 10, 20 ... and their tenths that is not below
double roundStep(double least)
{
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least) {
            return factor * power;
        }
    }
    return 10 * power;
}

} // namespace

double PlotCurve::duration() const
{
    return m_points.isEmpty() ? s_shortest : qMax(s_shortest, m_points.last().x());
}

double PlotCurve::timeStep() const
{
    return roundStep(duration() / s_timeLabels);
}

void PlotCurve::clear()
{
    m_points.clear();
    m_interval = 0;
}

void PlotCurve::add(double time, double value)
{
    if (!m_points.isEmpty() && time < m_points.last().x() + m_interval) {
        return;
    }
    if (m_points.size() == most) {
        for (int i = 0; i < most / 2; ++i) {
            m_points[i] = m_points.at(2 * i);
        }
        m_points.resize(most / 2);
        m_interval = 2 * (time - m_points.first().x()) / most;
    }
    m_points += QPointF(time, value);
}

void PlotCurve::setPoints(const QVector<QPointF> &points)
{
    m_points = points;
}

void PlotCurve::show()
{
    Curve curve;
    for (const QPointF &point : qAsConst(m_points)) {
        curve.values += point.y();
    }
    const Span extent = Trace::extentOf(curve);
    m_step = roundStep((extent.high - extent.low) / 2);
    m_low = std::floor(extent.low / m_step) * m_step;
    m_high = std::ceil(extent.high / m_step) * m_step;
    Q_EMIT shown();
}

void PlotCurve::drawInto(QtCharts::QXYSeries *series) const
{
    series->replace(m_points);
}

} // namespace Tavro::FieldHost
