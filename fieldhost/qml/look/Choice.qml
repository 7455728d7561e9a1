// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import QtQuick.Window 2.15

// One of several: a caption above a box that opens a list.
FocusScope {
    id: choice

    property string caption
    property bool mandatory: false
    property alias box: box
    property alias model: box.model
    property alias textRole: box.textRole
    property alias valueRole: box.valueRole
    property alias currentIndex: box.currentIndex
    property alias currentText: box.currentText
    property alias currentValue: box.currentValue
    property alias displayText: box.displayText

    // the user has chosen
    signal activated(int index)

    width: Look.isFilledIn(parent) ? parent.width : implicitWidth
    Layout.fillWidth: true
    implicitWidth: 30 * Look.gap
    implicitHeight: column.height

    Column {
        id: column

        width: parent.width
        spacing: Look.gap / 2

        Label {
            visible: choice.caption !== ""
            text: choice.mandatory ? choice.caption + " *" : choice.caption
            muted: true
            font.pointSize: Look.small
        }
        T.ComboBox {
            id: box

            width: parent.width
            implicitHeight: Math.max(Look.touch, implicitContentHeight + topPadding + bottomPadding)
            padding: Look.gap
            leftPadding: 1.5 * Look.gap + (mirrored ? Look.touch * 0.6 : 0)
            rightPadding: 1.5 * Look.gap + (mirrored ? 0 : Look.touch * 0.6)
            focus: true
            activeFocusOnTab: true
            font.family: Look.family
            font.pointSize: Look.body
            Accessible.name: choice.caption

            onActivated: choice.activated(index)
            // when the key goes up: a list that is open then takes it for its entry
            Keys.onReleased: {
                event.accepted = !popup.visible
                        && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                if (event.accepted) {
                    popup.open()
                }
            }

            contentItem: Label {
                width: 0 // the control sets it
                text: box.displayText
                font: box.font
                color: box.enabled ? Look.text : Look.muted
                verticalAlignment: Text.AlignVCenter
            }
            indicator: Icon {
                x: box.mirrored ? Look.gap : box.width - width - Look.gap
                y: (box.height - height) / 2
                name: "expand_more"
                color: box.enabled ? Look.accent : Look.muted
            }
            background: Rectangle {
                radius: Look.radius
                color: box.down ? Look.raised : Look.surface
                border.color: Look.outline

                FocusRing {
                    shown: box.visualFocus
                }
            }
            delegate: T.ItemDelegate {
                id: entry

                width: ListView.view.width
                implicitHeight: Math.max(Look.touch,
                                         implicitContentHeight + topPadding + bottomPadding)
                padding: Look.gap
                leftPadding: 1.5 * Look.gap
                rightPadding: 1.5 * Look.gap
                highlighted: box.highlightedIndex === index
                text: box.textRole === "" ? modelData
                                          : Array.isArray(box.model) ? modelData[box.textRole]
                                                                     : model[box.textRole]
                contentItem: Label {
                    width: 0 // the control sets it
                    text: entry.text
                    color: entry.highlighted ? Look.accentText : Look.text
                    font.weight: box.currentIndex === index ? Font.DemiBold : Font.Normal
                    verticalAlignment: Text.AlignVCenter
                }
                background: Rectangle {
                    radius: Look.radius
                    color: entry.highlighted ? Look.accent : "transparent"
                }
            }
            popup: T.Popup {
                // grows downwards, and moves up where the window ends
                y: box.height + Look.gap / 2
                width: box.width
                height: Math.min(contentItem.implicitHeight + 2 * padding,
                                 (box.Window.window ? box.Window.window.height : 480)
                                 - 2 * margins)
                margins: Look.gap
                padding: Look.gap / 2

                onOpened: list.positionViewAtIndex(box.currentIndex, ListView.Center)

                contentItem: ListView {
                    id: list

                    LayoutMirroring.enabled: Look.mirrored
                    LayoutMirroring.childrenInherit: true
                    clip: true
                    implicitHeight: contentHeight
                    model: box.popup.visible ? box.delegateModel : null
                    currentIndex: box.highlightedIndex
                    boundsBehavior: Flickable.StopAtBounds
                    T.ScrollBar.vertical: Scroll {}
                }
                background: Rectangle {
                    radius: Look.radius
                    color: Look.surface
                    border.color: Look.outline
                }
            }
        }
    }
}
