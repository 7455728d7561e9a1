// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoSharedBase 1.0
import QtCharts 2.15
import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../look"

// A quantity over time.
ColumnLayout {
    id: plot

    property string caption
    property string value // of now; empty for a plot of the past
    property var curve // a PlotCurve
    property int points: 0 // that are drawn

    spacing: 0
    Layout.fillWidth: true
    Layout.preferredWidth: 1

    // with as many decimals as the labels of an axis need
    function textOf(value, step) {
        return Formats.current.number(value, step >= 1 ? 0 : step >= 0.1 ? 1 : 2)
    }

    function draw() {
        curve.drawInto(series)
        points = series.count
    }

    Connections {
        target: plot.curve

        function onShown() {
            plot.draw()
        }
    }

    RowLayout {
        width: parent.width

        Label {
            text: plot.caption
            muted: true
        }
        Label {
            Layout.fillWidth: false
            visible: text !== ""
            text: plot.value
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignRight
        }
    }
    ChartView {
        id: chart

        Layout.fillWidth: true
        // room for four labels one above the other: of less, the chart shows dots
        Layout.preferredHeight: 24 * Look.gap
        // the same for all plots, so that their times are one below the other
        plotArea: Qt.rect(9 * Look.gap, 2 * Look.gap, Math.max(1, width - 12 * Look.gap),
                          Math.max(1, height - 7 * Look.gap))
        backgroundColor: "transparent"
        backgroundRoundness: 0
        plotAreaColor: Look.surface
        legend.visible: false
        antialiasing: true
        animationOptions: ChartView.NoAnimation
        Accessible.role: Accessible.Chart
        Accessible.name: plot.caption

        LineSeries {
            id: series

            color: Look.accent
            width: 2.5
            axisX: ValueAxis {
                min: 0
                max: plot.curve.duration
                tickType: ValueAxis.TicksDynamic
                tickInterval: plot.curve.timeStep
                labelsVisible: false
                gridLineColor: Look.raised
                color: Look.outline
            }
            axisY: ValueAxis {
                min: plot.curve.low
                max: plot.curve.high
                tickType: ValueAxis.TicksDynamic
                tickInterval: plot.curve.step
                labelsVisible: false
                gridLineColor: Look.raised
                color: Look.outline
            }
            Component.onCompleted: plot.draw()
        }
        // labels of our own: those of the axes end in dots where there is little room
        Repeater {
            model: Math.round((plot.curve.high - plot.curve.low) / plot.curve.step) + 1

            Label {
                readonly property real value: plot.curve.low + index * plot.curve.step

                x: chart.plotArea.x - width - Look.gap
                y: chart.plotArea.y - height / 2
                   + chart.plotArea.height * (plot.curve.high - value)
                   / (plot.curve.high - plot.curve.low)
                width: implicitWidth
                text: plot.textOf(value, plot.curve.step)
                muted: true
                font.pointSize: Look.small
            }
        }
        Repeater {
            model: Math.floor(plot.curve.duration / plot.curve.timeStep) + 1

            Label {
                readonly property real value: index * plot.curve.timeStep

                x: chart.plotArea.x - width / 2
                   + chart.plotArea.width * value / plot.curve.duration
                y: chart.plotArea.y + chart.plotArea.height + Look.gap / 2
                width: implicitWidth
                text: plot.textOf(value, plot.curve.timeStep)
                muted: true
                font.pointSize: Look.small
            }
        }
    }
}
