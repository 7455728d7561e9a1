// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/TextChart.h"

#include "fieldhost/jobs/Text.h"

#include <cmath>

namespace Tavro::FieldHost {

namespace {

constexpr int s_rows = 6; // characters that a curve is high
constexpr int s_labelWidth = 10;
constexpr int s_leastColumns = 20; // of the drawing
constexpr ushort s_emptyPattern = 0x2800;
// bits of a Braille pattern, by row and column of its dots
constexpr ushort s_dots[4][2] = {{0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};

// dots from the top
int rowOf(double value, const Span &extent)
{
    const double share = (extent.high - value) / (extent.high - extent.low);
    return static_cast<int>(std::lround(share * (s_rows * 4 - 1)));
}

QStringList drawCurve(const Trace &trace, const Curve &curve, int columns)
{
    const Span extent = Trace::extentOf(curve);
    QStringList lines;
    for (int row = 0; row < s_rows; ++row) {
        lines += QString(columns, QChar(s_emptyPattern));
    }
    const QVector<Span> spans = trace.columnsOf(curve, columns * 2);
    for (int x = 0; x < spans.size(); ++x) {
        const Span &span = spans.at(x);
        if (span.isEmpty()) {
            continue;
        }
        for (int y = rowOf(span.high, extent); y <= rowOf(span.low, extent); ++y) {
            QString &line = lines[y / 4];
            const ushort pattern = line.at(x / 2).unicode() | s_dots[y % 4][x % 2];
            line[x / 2] = QChar(pattern);
        }
    }
    const QString high = QString::number(extent.high, 'f', curve.decimals);
    const QString low = QString::number(extent.low, 'f', curve.decimals);
    for (int row = 0; row < s_rows; ++row) {
        const QString label = row == 0 ? high : row == s_rows - 1 ? low : QString();
        lines[row].prepend(label.rightJustified(s_labelWidth) + QStringLiteral(" │"));
    }
    return lines;
}

} // namespace

QStringList drawText(const Trace &trace, int columns)
{
    const int width = qMax(columns - s_labelWidth - 2, s_leastColumns);
    QStringList lines;
    for (const Curve &curve : trace.curves()) {
        lines += curve.title;
        lines += drawCurve(trace, curve, width);
    }
    lines += QString(s_labelWidth + 1, QLatin1Char(' ')) + QStringLiteral("└")
        + QString(width, QStringLiteral("─").at(0));
    const QString end = formatClock(std::llround(trace.duration() * 1000));
    lines += QString(s_labelWidth + 2, QLatin1Char(' ')) + QStringLiteral("0:00")
        + end.rightJustified(width - 4);
    return lines;
}

} // namespace Tavro::FieldHost
