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
    property int decimals: 1
    property var curve // a PlotCurve
    property int points: 0 // that are drawn

    spacing: 0
    Layout.fillWidth: true
    Layout.preferredWidth: 1

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
        localizeNumbers: true
        locale: Qt.locale(Formats.current.localeName())
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
                labelFormat: "%.0f"
                labelsColor: Look.muted
                labelsFont { family: Look.family; pointSize: Look.small }
                gridLineColor: Look.raised
                color: Look.outline
            }
            axisY: ValueAxis {
                min: plot.curve.low
                max: plot.curve.high
                tickType: ValueAxis.TicksDynamic
                tickInterval: plot.curve.step
                labelFormat: "%." + plot.decimals + "f"
                labelsColor: Look.muted
                labelsFont { family: Look.family; pointSize: Look.small }
                gridLineColor: Look.raised
                color: Look.outline
            }
            Component.onCompleted: plot.draw()
        }
    }
}
