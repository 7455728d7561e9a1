// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import OvoSharedBase 1.0
import QtQuick 2.15
import "../look"

// The USB drives. Looking at one that is not mounted mounts it, which is said before.
Card {
    id: card

    function stateOf(drive) {
        switch (drive.mark) {
        case "clean":
            return qsTr("Clean")
        case "dirty":
            return drive.mountPoint === "" ? qsTr("Dirty: it was pulled too early") : qsTr("In use")
        case "unreadable":
            return qsTr("Not known: reading it needs more rights")
        default:
            return qsTr("Has no mark")
        }
    }

    DriveList {
        id: list
    }

    Heading { text: qsTr("USB drives") }
    Label {
        objectName: "noDrive"
        visible: list.hasLooked && list.drives.length === 0
        text: qsTr("There is no USB drive.")
    }
    Notice {
        objectName: "driveWarning"
        kind: "warning"
        text: list.warning
    }
    Repeater {
        model: list.drives

        Column {
            objectName: "drive" + index
            width: parent.width
            spacing: Look.gap / 2

            Label {
                font.weight: Font.DemiBold
                text: modelData.vendor === "" ? modelData.device
                                              : modelData.vendor + ", " + modelData.device
            }
            Label {
                visible: modelData.kind === "" && modelData.size < 0
                text: qsTr("Nothing on it is mounted.")
            }
            Fact {
                visible: modelData.size >= 0
                caption: qsTr("Kind")
                value: modelData.kind === "" ? qsTr("FAT of no known type")
                                             : modelData.kind.toUpperCase()
            }
            Fact {
                visible: modelData.size >= 0
                caption: qsTr("Free")
                value: qsTr("%1 of %2").arg(Formats.current.bytes(modelData.free))
                                       .arg(Formats.current.bytes(modelData.size))
            }
            Bar {
                visible: modelData.size > 0
                value: 1 - modelData.free / modelData.size
            }
            Fact {
                visible: modelData.size >= 0
                caption: qsTr("State")
                value: card.stateOf(modelData)
                valueLabel.color: modelData.mark === "dirty" ? Look.warning : Look.text
            }
            Notice {
                kind: "warning"
                text: modelData.isSupported
                      ? "" : qsTr("The application works with exFAT, NTFS and the FAT volumes that it can mark.")
            }
        }
    }
    Bar {
        visible: list.isLooking
        indeterminate: true
    }
    Label {
        muted: true
        visible: list.mounts
        text: qsTr("To look at a drive, it is mounted for a moment. Do not pull it meanwhile.")
    }
    ActionButton {
        objectName: "lookAtDrives"
        icon.name: "usb"
        text: list.isLooking ? qsTr("Looking …") : qsTr("Look at the drives")
        enabled: !list.isLooking
        onClicked: list.look()
    }
}
