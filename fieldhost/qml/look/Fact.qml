// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15

// What something is, and its value beside it, or below it where there is little room.
Item {
    id: fact

    property string caption
    property string value
    property alias valueLabel: valueLabel

    width: Look.isFilledIn(parent) ? parent.width : implicitWidth
    Layout.fillWidth: true
    implicitWidth: 40 * Look.gap
    implicitHeight: grid.height

    Grid {
        id: grid

        readonly property real room: width - columnSpacing

        width: parent.width
        columns: width >= 360 * Look.fontScale ? 2 : 1
        columnSpacing: 2 * Look.gap

        Label {
            width: grid.columns === 2 ? grid.room * 0.4 : grid.width
            text: fact.caption
            muted: true
        }
        Label {
            id: valueLabel

            width: grid.columns === 2 ? grid.room * 0.6 : grid.width
            text: fact.value
        }
    }
}
