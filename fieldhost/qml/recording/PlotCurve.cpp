// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/recording/PlotCurve.h"

#include <cmath>

namespace Tavro::FieldHost {

namespace {

constexpr double s_shortest = 10; // s, so that a plot does not race at its beginning
constexpr int s_timeLabels = 6;
constexpr double s_firstLength = 0.05; // s: a frame, and a bit

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
    return qMax(s_shortest, m_end);
}

double PlotCurve::timeStep() const
{
    return roundStep(duration() / s_timeLabels);
}

void PlotCurve::clear()
{
    m_stretches.clear();
    m_length = s_firstLength;
    m_end = 0;
}

void PlotCurve::add(double time, double value)
{
    while (time >= most * m_length) {
        halve();
    }
    while (m_stretches.size() * m_length <= time) {
        m_stretches.append(Span());
        if (m_stretches.size() > 1) {
            m_stretches.last().include(m_last);
        }
    }
    m_stretches.last().include(value);
    m_end = time;
    m_last = value;
}

void PlotCurve::halve()
{
    for (int i = 0; i < m_stretches.size(); i += 2) {
        Span both = m_stretches.at(i);
        if (i + 1 < m_stretches.size()) {
            both.include(m_stretches.at(i + 1).low);
            both.include(m_stretches.at(i + 1).high);
        }
        m_stretches[i / 2] = both;
    }
    m_stretches.resize((m_stretches.size() + 1) / 2);
    m_length *= 2;
}

void PlotCurve::setStretches(const QVector<Span> &stretches, double duration)
{
    m_stretches = stretches;
    m_length = stretches.isEmpty() ? s_firstLength : duration / stretches.size();
    m_end = duration;
}

void PlotCurve::show()
{
    Curve values;
    m_points.clear();
    for (int i = 0; i < m_stretches.size(); ++i) {
        const Span &stretch = m_stretches.at(i);
        if (stretch.isEmpty()) {
            continue;
        }
        // beginning with the end that is nearer to the stretch before
        const bool isRising = m_points.isEmpty()
            || m_points.last().y() - stretch.low <= stretch.high - m_points.last().y();
        m_points += QPointF(i * m_length, isRising ? stretch.low : stretch.high);
        m_points += QPointF(qMin((i + 1) * m_length, m_end), isRising ? stretch.high : stretch.low);
        values.values += stretch.low;
        values.values += stretch.high;
    }
    const Span extent = Trace::extentOf(values);
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
