// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/Trace.h"

#include "fieldhost/jobs/Text.h"

namespace Tavro::FieldHost {

void Span::include(double value)
{
    if (isEmpty()) {
        low = value;
        high = value;
    } else {
        low = qMin(low, value);
        high = qMax(high, value);
    }
}

Trace::Trace(const ClipInfoFile &file)
    : m_curves{{JobText::tr("distance %1").arg(file.unit).trimmed(), 2, {}},
               {JobText::tr("pan °"), 1, {}},
               {JobText::tr("tilt °"), 1, {}}}
{
    double begin = 0; // of the recording
    double last = 0; // in the recording
    m_times.reserve(file.samples.size());
    for (const ClipSample &sample : file.samples) {
        if (m_times.isEmpty() || sample.time < last) {
            begin += last;
            ++m_recordings;
        }
        last = sample.time;
        m_times.append(begin + last);
        m_curves[0].values.append(sample.distance);
        m_curves[1].values.append(sample.pan);
        m_curves[2].values.append(sample.tilt);
    }
}

QVector<Span> Trace::columnsOf(const Curve &curve, int columns) const
{
    QVector<Span> spans(columns);
    int next = 0; // sample
    for (int column = 0; column < columns; ++column) {
        Span &span = spans[column];
        if (next > 0) {
            span.include(curve.values.at(next - 1));
        }
        const double end = duration() * (column + 1) / columns;
        const bool isLast = column == columns - 1;
        while (next < m_times.size() && (isLast || m_times.at(next) < end)) {
            span.include(curve.values.at(next));
            ++next;
        }
    }
    return spans;
}

Span Trace::extentOf(const Curve &curve)
{
    Span extent;
    for (const double value : curve.values) {
        extent.include(value);
    }
    if (extent.isEmpty() || extent.low == extent.high) {
        const double middle = extent.isEmpty() ? 0 : extent.low;
        extent.low = middle - 1;
        extent.high = middle + 1;
    }
    return extent;
}

} // namespace Tavro::FieldHost
