// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/PictureChart.h"

#include "fieldhost/jobs/Text.h"

#include <QPainter>

#include <array>
#include <cmath>

namespace Tavro::FieldHost {

namespace {

constexpr QSize s_size(960, 720);
constexpr int s_left = 90; // of the curves: room for labels
constexpr int s_right = 20;
constexpr int s_bottom = 30;
constexpr int s_titleHeight = 24;
constexpr int s_timeMarks = 6;
constexpr std::array<QRgb, 3> s_curveColors = {0xff1f5fa8, 0xffb0481c, 0xff2e7d32};
constexpr QRgb s_frameColor = 0xffb0b0b0;

void drawCurve(QPainter &painter, const Trace &trace, const Curve &curve, const QRect &frame,
               QRgb color)
{
    painter.setPen(QColor(s_frameColor));
    painter.drawRect(frame.adjusted(0, 0, -1, -1));

    const Span extent = Trace::extentOf(curve);
    const auto yOf = [&](double value) {
        const double share = (extent.high - value) / (extent.high - extent.low);
        return frame.top() + static_cast<int>(std::lround(share * (frame.height() - 1)));
    };
    painter.setPen(QColor(color));
    const QVector<Span> spans = trace.columnsOf(curve, frame.width());
    for (int x = 0; x < spans.size(); ++x) {
        const Span &span = spans.at(x);
        if (!span.isEmpty()) {
            painter.drawLine(frame.left() + x, yOf(span.high), frame.left() + x, yOf(span.low));
        }
    }

    painter.setPen(Qt::black);
    const int lineHeight = painter.fontMetrics().height();
    painter.drawText(QRect(frame.left(), frame.top() - s_titleHeight, frame.width(), s_titleHeight),
                     Qt::AlignLeft | Qt::AlignVCenter, curve.title);
    const QRect label(0, frame.top(), s_left - 6, lineHeight);
    painter.drawText(label, Qt::AlignRight | Qt::AlignTop,
                     QString::number(extent.high, 'f', curve.decimals));
    painter.drawText(label.translated(0, frame.height() - lineHeight),
                     Qt::AlignRight | Qt::AlignBottom,
                     QString::number(extent.low, 'f', curve.decimals));
}

} // namespace

QImage drawPicture(const Trace &trace)
{
    QImage picture(s_size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    QFont font = painter.font();
    font.setPixelSize(13);
    painter.setFont(font);

    const int panelHeight = (s_size.height() - s_bottom) / trace.curves().size();
    const int width = s_size.width() - s_left - s_right;
    for (int i = 0; i < trace.curves().size(); ++i) {
        const QRect frame(s_left, i * panelHeight + s_titleHeight, width,
                          panelHeight - s_titleHeight);
        drawCurve(painter, trace, trace.curves().at(i), frame,
                  s_curveColors.at(static_cast<size_t>(i)));
    }
    for (int i = 0; i <= s_timeMarks; ++i) {
        const int x = s_left + (width - 1) * i / s_timeMarks;
        const auto milliseconds = std::llround(trace.duration() * 1000 * i / s_timeMarks);
        painter.drawText(QRect(x - 40, s_size.height() - s_bottom, 80, s_bottom), Qt::AlignCenter,
                         formatClock(milliseconds));
    }
    return picture;
}

} // namespace Tavro::FieldHost
