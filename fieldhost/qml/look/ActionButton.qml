// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Templates 2.15 as T

// A button with a text, and with an icon where icon.name is one. Enter presses it, as the space
// bar does.
T.Button {
    id: button

    // "primary": what most people want next; "danger": something goes for good; "plain"
    property string kind: "plain"

    readonly property color ground: kind === "primary" ? Look.accent
                                                       : kind === "danger" ? Look.bad : Look.raised
    readonly property color ink: !enabled ? Look.muted
                                          : kind === "primary" ? Look.accentText
                                                               : kind === "danger" ? Look.badText
                                                                                   : Look.text

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(Look.touch, implicitContentHeight + topPadding + bottomPadding)
    padding: Look.gap
    leftPadding: 2 * Look.gap
    rightPadding: 2 * Look.gap
    activeFocusOnTab: true
    font.family: Look.family
    font.pointSize: Look.body
    font.weight: Font.DemiBold

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Item {
        readonly property real iconWidth: icon.visible ? icon.width + row.spacing : 0
        // not the label's own: asked for its implicit width, a text lays itself out
        readonly property real textWidth: Math.ceil(metrics.advanceWidth) + 1

        implicitWidth: textWidth + iconWidth
        implicitHeight: Math.max(icon.implicitHeight, label.height)

        TextMetrics {
            id: metrics

            font: button.font
            text: button.text
        }
        Row {
            id: row

            anchors.centerIn: parent
            spacing: Look.gap

            Icon {
                id: icon

                anchors.verticalCenter: parent.verticalCenter
                name: button.icon.name
                color: button.ink
            }
            Label {
                id: label

                anchors.verticalCenter: parent.verticalCenter
                visible: text !== ""
                width: Math.min(button.contentItem.textWidth,
                                button.availableWidth - button.contentItem.iconWidth)
                text: button.text
                color: button.ink
                font: button.font
                horizontalAlignment: Text.AlignHCenter
            }
        }
    }
    background: Rectangle {
        radius: Look.radius
        color: !button.enabled ? "transparent"
                               : button.down ? Qt.darker(button.ground, 1.15) : button.ground
        border.color: button.kind === "plain" || !button.enabled ? Look.outline : "transparent"

        FocusRing {
            shown: button.visualFocus
        }
    }
}
