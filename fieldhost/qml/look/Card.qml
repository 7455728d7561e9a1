// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15

// A surface with what belongs together, one below the other. What it holds is a Column, here as in
// Page and Question: heights follow from widths, and layouts within layouts would go round in
// circles over texts that wrap. Components of this directory are as wide as what holds them; give
// a RowLayout or another item of your own "width: parent.width".
Rectangle {
    default property alias content: column.data

    width: Look.isFilledIn(parent) ? parent.width : implicitWidth
    Layout.fillWidth: true
    implicitWidth: 40 * Look.gap
    implicitHeight: column.height + 4 * Look.gap
    radius: Look.radius
    color: Look.surface
    border.color: Look.raised

    Column {
        id: column

        x: 2 * Look.gap
        y: 2 * Look.gap
        width: parent.width - 4 * Look.gap
        spacing: Look.gap * 1.5
    }
}
