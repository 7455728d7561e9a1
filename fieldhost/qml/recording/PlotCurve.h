// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/Trace.h"

#include <QObject>
#include <QPointF>
#include <QString>
#include <QVector>
#include <QtCharts/QXYSeries>

namespace Tavro::FieldHost {

/**
 * A quantity over time, in seconds, with the axes that suit it.
 *
 * The time is divided into stretches, of which the lowest and the highest value are kept: a curve
 * is small however long it is, and no peak is lost. Nobody hears of values before show().
 */
class PlotCurve : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double low READ low NOTIFY shown)
    Q_PROPERTY(double high READ high NOTIFY shown)
    Q_PROPERTY(double step READ step NOTIFY shown)
    Q_PROPERTY(double duration READ duration NOTIFY shown)
    Q_PROPERTY(double timeStep READ timeStep NOTIFY shown)

public:
    using QObject::QObject;

    /** The most stretches that the time of a curve is divided into. */
    static constexpr int most = 400;

    /** Ends of the axis of values, multiples of step(); apart also for a curve without extent. */
    double low() const { return m_low; }
    double high() const { return m_high; }
    /** Distance of two labels of that axis. */
    double step() const { return m_step; }
    /** End of the axis of time, which begins at 0; never 0. */
    double duration() const;
    /** Distance of two labels of that axis. */
    double timeStep() const;
    /** What is drawn. */
    const QVector<QPointF> &points() const { return m_points; }

    /** No values, as at first. */
    void clear();
    /** Adds a value, which holds until the next one; @p time is not before the last one. */
    void add(double time, double value);
    /** Replaces all values by @p stretches of the same length, which end at @p duration. */
    void setStretches(const QVector<Span> &stretches, double duration);
    /** Computes points and axes and emits shown(). */
    void show();

    /** Makes the points those of @p series. */
    Q_INVOKABLE void drawInto(QtCharts::QXYSeries *series) const;

Q_SIGNALS:
    void shown();

private:
    void halve();

    QVector<Span> m_stretches;
    double m_length = 1; // of a stretch, in s
    double m_end = 0; // time of the last value
    double m_last = 0; // value
    QVector<QPointF> m_points;
    double m_low = -1;
    double m_high = 1;
    double m_step = 1;
};

} // namespace Tavro::FieldHost
