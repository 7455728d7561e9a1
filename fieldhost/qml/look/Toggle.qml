// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T

// A switch with its text.
T.Switch {
    id: control

    // as the space bar does
    function turn() {
        toggle()
        toggled()
        clicked()
    }

    width: Look.isFilledIn(parent) ? parent.width : implicitWidth
    Layout.fillWidth: true
    implicitWidth: leftPadding + implicitContentWidth + rightPadding
    implicitHeight: Math.max(Look.touch, implicitContentHeight + topPadding + bottomPadding)
    leftPadding: mirrored ? 0 : track.width + 1.5 * Look.gap
    rightPadding: mirrored ? track.width + 1.5 * Look.gap : 0
    activeFocusOnTab: true
    font.family: Look.family
    font.pointSize: Look.body

    Keys.onReturnPressed: turn()
    Keys.onEnterPressed: turn()

    contentItem: Label {
        width: 0 // the control sets it
        text: control.text
        font: control.font
        color: control.enabled ? Look.text : Look.muted
        verticalAlignment: Text.AlignVCenter
    }
    indicator: Rectangle {
        id: track

        x: control.mirrored ? control.width - width : 0
        y: (control.height - height) / 2
        width: height * 1.75
        height: Look.touch * 0.6
        radius: height / 2
        color: control.checked ? Look.accent : Look.raised
        border.color: control.checked ? Look.accent : Look.outline
        border.width: 2

        Rectangle {
            readonly property bool atEnd: control.checked !== control.mirrored

            x: atEnd ? parent.width - width - 5 : 5
            y: 5
            width: height
            height: parent.height - 10
            radius: height / 2
            color: control.checked ? Look.accentText : Look.muted
        }
        FocusRing {
            shown: control.visualFocus
            radius: height / 2
        }
    }
}
