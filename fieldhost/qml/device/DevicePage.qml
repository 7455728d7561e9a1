// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../look"

// The device itself: its drives, its clock and its log.
Page {
    id: page

    title: qsTr("Device")

    GridLayout {
        width: parent.width
        columns: page.wide ? 2 : 1
        columnSpacing: 2 * Look.gap
        rowSpacing: 2 * Look.gap

        DriveCard {
            Layout.alignment: Qt.AlignTop
        }
        ClockCard {
            Layout.alignment: Qt.AlignTop
        }
    }
    LogCard {}
}
