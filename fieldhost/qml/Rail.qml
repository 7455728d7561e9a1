// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import "look"

// The screens to choose from. Arrow keys go up and down. In a narrow window the icons stand alone.
Rectangle {
    id: rail

    property bool wide: true
    property var pages
    property string page
    property var titleOf
    // one place for each screen and one for the colours
    readonly property real entryHeight: Math.min(Look.touch * 1.2,
                                                 (height - 16) / (pages.count + 1))

    signal chosen(string name)

    implicitWidth: wide ? 280 * Look.fontScale : 80
    color: Look.surface

    component Entry: T.AbstractButton {
        id: entry

        property string symbol
        property bool current: false

        width: parent.width
        height: rail.entryHeight
        rightPadding: rail.wide ? 14 : 0
        activeFocusOnTab: true
        font.family: Look.family
        font.pointSize: Look.body
        Accessible.name: text

        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)

        contentItem: RowLayout {
            spacing: 1.5 * Look.gap

            Icon {
                Layout.leftMargin: rail.wide ? 2 * Look.gap : 0
                Layout.fillWidth: !rail.wide
                name: entry.symbol
                color: entry.current ? Look.accentText : Look.muted
            }
            Label {
                visible: rail.wide
                text: entry.text
                font: entry.font
                color: entry.current ? Look.accentText : Look.text
            }
        }
        background: Rectangle {
            anchors.fill: parent
            anchors.margins: 6
            radius: Look.radius
            color: entry.current ? Look.accent : entry.down ? Look.raised : "transparent"

            FocusRing {
                shown: entry.visualFocus
            }
        }
    }

    Column {
        y: 8
        width: parent.width

        Repeater {
            model: rail.pages

            Entry {
                objectName: model.name + "Tab"
                text: rail.titleOf(model.name)
                symbol: model.icon
                current: rail.page === model.name
                onClicked: rail.chosen(model.name)
            }
        }
    }
    Entry {
        objectName: "darkToggle"
        anchors { bottom: parent.bottom; bottomMargin: 8 }
        text: Look.dark ? qsTr("Light colours") : qsTr("Dark colours")
        symbol: Look.dark ? "light_mode" : "dark_mode"
        onClicked: Look.dark = !Look.dark
    }
}
