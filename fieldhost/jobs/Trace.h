// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/jobs/ClipInfoFile.h"

#include <QString>
#include <QVector>

namespace Tavro::FieldHost {

/** The lowest and the highest value in a stretch of time; none when low is above high. */
struct Span
{
    double low = 1;
    double high = 0;

    bool isEmpty() const { return low > high; }
    void include(double value);
};

/** One quantity over the time of all recordings in a file. */
struct Curve
{
    QString title; // with the unit
    int decimals = 1; // of its labels
    QVector<double> values; // one for each time of the trace
};

/** The samples of a file as curves over time. */
class Trace
{
public:
    explicit Trace(const ClipInfoFile &file);

    /** Distance, pan and tilt, in this order. */
    const QVector<Curve> &curves() const { return m_curves; }
    /** From the first second of the first recording to the last of the last, in seconds. */
    double duration() const { return m_times.isEmpty() ? 0 : m_times.last(); }
    /**
     * How often the time begins anew: a video of a name that was there already continues the
     * file. The recordings follow one another.
     */
    int recordings() const { return m_recordings; }

    /**
     * What @p curve covers in each of @p columns equal stretches of the time. A value holds until
     * the next sample.
     */
    QVector<Span> columnsOf(const Curve &curve, int columns) const;

    /** What @p curve covers in all, never empty: a curve without extent gets some. */
    static Span extentOf(const Curve &curve);

private:
    QVector<double> m_times;
    QVector<Curve> m_curves;
    int m_recordings = 0;
};

} // namespace Tavro::FieldHost
