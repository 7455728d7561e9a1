// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15

// Shows around its parent where the keyboard is. Outside of it, so that it is seen on any colour.
Rectangle {
    property bool shown: false

    anchors.fill: parent
    anchors.margins: -4
    visible: shown
    color: "transparent"
    radius: Look.radius + 4
    border.color: Look.accent
    border.width: 3
}
