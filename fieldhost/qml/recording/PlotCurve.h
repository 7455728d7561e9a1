#pragma once

#include <QObject>
#include <QPointF>
#include <QString>
#include <QVector>
#include <QtCharts/QXYSeries>

namespace Tavro::FieldHost {

/**
 * A quantity over time, in seconds, with the axes that suit it.
 *
 * Values may be added often: nobody hears of them before show(), and when there are too many to
 * draw, every other one goes.
 */
class PlotCurve : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double low READ low NOTIFY shown)
    Q_PROPERTY(double high READ high NOTIFY shown)
    Q_PROPERTY(double step READ step NOTIFY shown)
    Q_PROPERTY(double duration READ duration NOTIFY shown)
    Q_PROPERTY(double timeStep READ timeStep NOTIFY shown)
    Q_PROPERTY(int count READ count NOTIFY shown)

public:
    using QObject::QObject;

    /** Most points that a curve keeps. */
    static constexpr int most = 600;

    /** Ends of the axis of values, multiples of step(); apart also for a curve without extent. */
    double low() const { return m_low; }
    double high() const { return m_high; }
    /** Distance of two labels of that axis. */
    double step() const { return m_step; }
    /** End of the axis of time, which begins at 0; never 0. */
    double duration() const;
    /** Distance of two labels of that axis. */
    double timeStep() const;
    int count() const { return m_points.size(); }
    const QVector<QPointF> &points() const { return m_points; }

    /** No points, as at first. */
    void clear();
    /** Adds a point; @p time is not before the last one. */
    void add(double time, double value);
    /** Replaces all points, of which there may be any number. */
    void setPoints(const QVector<QPointF> &points);
    /** Computes the axes and emits shown(). */
    void show();

    /** Makes the points those of @p series. */
    Q_INVOKABLE void drawInto(QtCharts::QXYSeries *series) const;

Q_SIGNALS:
    void shown();

private:
    QVector<QPointF> m_points;
    double m_interval = 0; // least time between two points, in s
    double m_low = -1;
    double m_high = 1;
    double m_step = 1;
};

} // namespace Tavro::FieldHost
