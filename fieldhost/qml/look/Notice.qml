// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15

// Something to be said, with an icon and a colour for how it is meant.
Rectangle {
    id: notice

    property string kind: "info" // or "good", "warning", "bad"
    property string text
    readonly property color ink: Look.colourOf(kind)

    width: Look.isFilledIn(parent) ? parent.width : implicitWidth
    Layout.fillWidth: true
    implicitWidth: 40 * Look.gap
    implicitHeight: Math.max(label.height, icon.height) + 2 * Look.gap
    visible: text !== ""
    radius: Look.radius
    color: Look.surface
    border.color: ink
    border.width: 2
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Icon {
        id: icon

        anchors { left: parent.left; leftMargin: 1.5 * Look.gap; top: parent.top; topMargin: Look.gap }
        name: ({ "good": "check_circle", "warning": "warning", "bad": "error" })[notice.kind]
              || "info"
        color: notice.ink
    }
    Label {
        id: label

        anchors {
            left: icon.visible ? icon.right : parent.left
            leftMargin: icon.visible ? Look.gap : 1.5 * Look.gap
            right: parent.right
            rightMargin: 1.5 * Look.gap
            verticalCenter: parent.verticalCenter
        }
        text: notice.text
        color: notice.kind === "info" ? Look.text : notice.ink
    }
}
