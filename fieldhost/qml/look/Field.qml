// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T

// A line to type into: what it is, its unit, whether it must be filled in, and what is to be said
// of the text.
FocusScope {
    id: field

    property string caption
    property string unit
    property bool mandatory: false
    property string message
    property string messageKind: "info" // as of a Notice
    property alias input: input
    property alias text: input.text
    property alias validator: input.validator
    property alias readOnly: input.readOnly
    property alias placeholderText: input.placeholderText
    property alias inputMethodHints: input.inputMethodHints

    signal edited()
    signal accepted()

    width: Look.isFilledIn(parent) ? parent.width : implicitWidth
    Layout.fillWidth: true
    implicitWidth: 30 * Look.gap
    implicitHeight: column.height

    Column {
        id: column

        width: parent.width
        spacing: Look.gap / 2

        Label {
            visible: field.caption !== ""
            text: field.mandatory ? field.caption + " *" : field.caption
            muted: true
            font.pointSize: Look.small
        }
        T.TextField {
            id: input

            readonly property real unitWidth: unitLabel.visible ? unitLabel.implicitWidth
                                                                  + 1.5 * Look.gap : 0
            readonly property bool mirrors: Look.mirrored

            width: parent.width
            implicitHeight: Math.max(Look.touch, contentHeight + topPadding + bottomPadding)
            padding: Look.gap
            leftPadding: 1.5 * Look.gap + (mirrors ? unitWidth : 0)
            rightPadding: 1.5 * Look.gap + (mirrors ? 0 : unitWidth)
            focus: true
            activeFocusOnTab: true
            selectByMouse: true
            verticalAlignment: TextInput.AlignVCenter
            horizontalAlignment: TextInput.AlignLeft
            color: enabled && !readOnly ? Look.text : Look.muted
            placeholderTextColor: Look.muted
            selectionColor: Look.accent
            selectedTextColor: Look.accentText
            font.family: Look.family
            font.pointSize: Look.body
            Accessible.name: field.caption
            Accessible.description: field.message

            onTextEdited: field.edited()
            onAccepted: field.accepted()

            background: Rectangle {
                radius: Look.radius
                color: input.readOnly ? Look.raised : Look.surface
                border.color: field.messageKind === "bad" && field.message !== "" ? Look.bad
                                                                                  : Look.outline

                FocusRing {
                    shown: input.activeFocus
                }
            }

            Text {
                visible: input.text === "" && input.placeholderText !== ""
                         && input.preeditText === ""
                anchors.fill: parent
                anchors.leftMargin: input.leftPadding
                anchors.rightMargin: input.rightPadding
                verticalAlignment: Text.AlignVCenter
                horizontalAlignment: Text.AlignLeft
                elide: Text.ElideRight
                text: input.placeholderText
                color: Look.muted
                font: input.font
                Accessible.ignored: true
            }
            Text {
                id: unitLabel

                visible: text !== ""
                anchors.right: parent.right
                anchors.rightMargin: 1.5 * Look.gap
                anchors.verticalCenter: parent.verticalCenter
                text: field.unit
                textFormat: Text.PlainText
                color: Look.muted
                font: input.font
            }
        }
        Label {
            visible: text !== ""
            text: field.message
            color: field.messageKind === "info" ? Look.muted : Look.colourOf(field.messageKind)
            font.pointSize: Look.small
        }
    }
}
