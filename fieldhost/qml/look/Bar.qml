// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T

// How far something is: value from 0 to 1, or indeterminate.
T.ProgressBar {
    id: bar

    width: Look.isFilledIn(parent) ? parent.width : implicitWidth
    Layout.fillWidth: true
    implicitWidth: 200
    implicitHeight: Look.gap * 2

    background: Rectangle {
        radius: height / 2
        color: Look.raised
        border.color: Look.outline
    }
    contentItem: Item {
        clip: true

        Rectangle {
            // runs from one end to the other while nobody knows how much there is
            property real run: 0

            x: bar.indeterminate ? (parent.width - width) * run
                                 : bar.mirrored ? parent.width - width : 0
            width: parent.width * (bar.indeterminate ? 0.25 : bar.position)
            height: parent.height
            radius: height / 2
            color: Look.accent

            SequentialAnimation on run {
                running: bar.indeterminate && bar.visible
                loops: Animation.Infinite
                NumberAnimation { to: 1; duration: 1600; easing.type: Easing.InOutSine }
                NumberAnimation { to: 0; duration: 1600; easing.type: Easing.InOutSine }
            }
        }
    }
}
