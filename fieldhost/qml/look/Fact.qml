import QtQuick 2.15
import QtQuick.Layouts 1.15

// What something is, and its value beside it, or below it where there is little room.
Grid {
    id: fact

    property string caption
    property string value
    property alias valueLabel: valueLabel

    width: parent ? parent.width : implicitWidth
    Layout.fillWidth: true
    columns: width >= 360 * Look.fontScale ? 2 : 1
    columnSpacing: 2 * Look.gap

    Label {
        width: fact.columns === 2 ? (fact.width - fact.columnSpacing) * 0.4 : fact.width
        text: fact.caption
        muted: true
    }
    Label {
        id: valueLabel

        width: fact.columns === 2 ? (fact.width - fact.columnSpacing) * 0.6 : fact.width
        text: fact.value
    }
}
