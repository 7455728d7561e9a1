// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Window 2.15
import OvoFieldHost 1.0
import OvoSharedBase 1.0
import "../look"
import "sizes.js" as Sizes

// Copies a project to a drive: choice, progress and result, one in the place of the other.
Page {
    id: page

    readonly property bool busy: exporter.busy
    readonly property bool choosing: exporter.state === ExportState.Choosing
    readonly property bool hasEnded: !busy && !choosing
    readonly property bool underWay: exporter.state === ExportState.Copying
                                     || exporter.state === ExportState.Paused
                                     || exporter.state === ExportState.Verifying
    // everything is copied, and what is left has no bytes: names, and the device itself
    readonly property bool finishing: exporter.state === ExportState.Copying
                                      && exporter.totalBytes > 0 && exporter.bytes >= exporter.totalBytes

    function titleOf(state) {
        switch (state) {
        case ExportState.Locking:
            return qsTr("Getting the drive ready")
        case ExportState.Planning:
            return qsTr("Looking through the project")
        case ExportState.Confirming:
            return qsTr("Waiting for your answer")
        case ExportState.Copying:
            return finishing ? qsTr("Writing the last data to the drive") : qsTr("Copying")
        case ExportState.Paused:
            return qsTr("Paused")
        case ExportState.Verifying:
            return qsTr("Comparing the copy with the project")
        case ExportState.Aborting:
            return qsTr("Aborting")
        case ExportState.Unmounting:
            return qsTr("Unmounting the drive")
        case ExportState.Done:
            return qsTr("The export is done")
        case ExportState.Failed:
            return qsTr("The export has failed")
        case ExportState.Aborted:
            return qsTr("The export was aborted")
        case ExportState.Refused:
            return qsTr("Nothing was copied")
        default:
            return ""
        }
    }

    // what takes its time, said while it does
    function hintOf(state) {
        switch (state) {
        case ExportState.Locking:
            return qsTr("The drive is mounted and marked as in use. Leave it plugged in.")
        case ExportState.Aborting:
            return qsTr("The data on its way is written first, then the copy is removed.")
        case ExportState.Unmounting:
            return qsTr("This waits until no other program uses the drive. Leave it plugged in.")
        default:
            return ""
        }
    }

    function abortText() {
        if (exporter.state === ExportState.Verifying && exporter.landingExists) {
            return qsTr("The copy in %1 stays, but it is not compared to the end.").arg(exporter.landing)
        }
        return exporter.landingExists
                ? qsTr("The unfinished copy is removed. What was in %1 before stays as it was.")
                  .arg(exporter.landing)
                : qsTr("%1 is removed, with everything that was copied.").arg(exporter.landing)
    }

    title: qsTr("Export")
    // there is nothing left to abort
    onUnderWayChanged: if (!underWay) abortQuestion.close()

    ExportModel {
        id: exporter

        onStateChanged: confirmQuestion.visible = state === ExportState.Confirming
    }
    Connections {
        target: page.Window.window

        // a window that closes ends the export as an abort does
        function onClosing(close) {
            if (page.underWay) {
                close.accepted = false
                abortQuestion.open()
            }
        }
    }
    DirectorySize {
        id: sourceSize

        path: exporter.source
    }
    FreeSpace {
        id: freeSpace

        // of a drive that is not mounted yet, the disk below it would answer
        path: exporter.destination === Places.usbDrive ? "" : exporter.destination
    }

    Grid {
        id: choices

        readonly property real cardWidth: (width - (columns - 1) * columnSpacing) / columns
        readonly property real cardHeight: columns > 1 ? Math.max(projectCard.implicitHeight,
                                                                  driveCard.implicitHeight) : 0

        visible: page.choosing
        width: parent.width
        columns: page.wide ? 2 : 1
        columnSpacing: 2 * Look.gap
        rowSpacing: 2 * Look.gap

        Card {
            id: projectCard

            width: choices.cardWidth
            height: Math.max(implicitHeight, choices.cardHeight)

            Heading { text: qsTr("Project") }
            Label {
                objectName: "sourcePath"
                wrapMode: Text.WrapAnywhere
                muted: exporter.source === ""
                text: exporter.source !== "" ? exporter.source : qsTr("Choose the directory to copy.")
            }
            Label {
                objectName: "sourceSize"
                visible: exporter.source !== ""
                muted: !sourceSize.ready
                text: sourceSize.ready ? Sizes.text(Formats.current, sourceSize.bytes)
                                       : qsTr("Counting …")
            }
            ActionButton {
                objectName: "chooseSource"
                width: parent.width
                icon.name: "folder_open"
                text: qsTr("Choose directory")
                onClicked: {
                    chooser.forSource = true
                    chooser.openAt(exporter.source)
                }
            }
        }
        Card {
            id: driveCard

            width: choices.cardWidth
            height: Math.max(implicitHeight, choices.cardHeight)

            Heading { text: qsTr("Drive") }
            Label {
                objectName: "destinationPath"
                wrapMode: Text.WrapAnywhere
                muted: exporter.destination === ""
                text: exporter.destination === "" ? qsTr("Choose where the copy goes.")
                      : exporter.destination === Places.usbDrive
                        ? qsTr("USB drive (%1)").arg(exporter.destination) : exporter.destination
            }
            Label {
                objectName: "freeSpace"
                visible: freeSpace.ready && freeSpace.bytes >= 0
                text: qsTr("%1 free").arg(Sizes.text(Formats.current, freeSpace.bytes))
            }
            ActionButton {
                objectName: "useDrive"
                width: parent.width
                icon.name: "usb"
                text: qsTr("USB drive")
                onClicked: exporter.destination = Places.usbDrive
            }
            ActionButton {
                objectName: "chooseDestination"
                width: parent.width
                icon.name: "folder_open"
                text: qsTr("Another directory")
                onClicked: {
                    chooser.forSource = false
                    chooser.openAt(exporter.destination)
                }
            }
        }
    }
    Toggle {
        objectName: "verify"
        visible: page.choosing
        text: qsTr("Read the copy back and compare it")
        checked: exporter.verify
        onToggled: exporter.verify = checked
    }
    ActionButton {
        objectName: "start"
        visible: page.choosing
        width: parent.width
        kind: "primary"
        icon.name: "save_alt"
        text: qsTr("Export")
        enabled: exporter.source !== "" && exporter.destination !== ""
        onClicked: exporter.start()
    }

    Card {
        visible: page.busy

        Heading {
            objectName: "stateTitle"
            text: page.titleOf(exporter.state)
        }
        Label {
            visible: text !== ""
            text: page.hintOf(exporter.state)
        }
        Bar {
            objectName: "bar"
            indeterminate: !page.underWay && exporter.state !== ExportState.Confirming
            value: exporter.totalBytes > 0 ? exporter.bytes / exporter.totalBytes : 0
        }
        Fact {
            objectName: "bytes"
            visible: page.underWay
            caption: exporter.state === ExportState.Verifying ? qsTr("Compared") : qsTr("Copied")
            value: qsTr("%1 of %2").arg(Sizes.text(Formats.current, exporter.bytes))
                   .arg(Sizes.text(Formats.current, exporter.totalBytes))
        }
        Fact {
            objectName: "directory"
            visible: page.underWay && exporter.state !== ExportState.Verifying
            caption: qsTr("Directory")
            value: exporter.directory
            valueLabel.wrapMode: Text.WrapAnywhere
        }
        Fact {
            objectName: "rate"
            visible: page.underWay
            caption: qsTr("Speed")
            value: exporter.rate > 0
                   ? qsTr("%1 MiB/s").arg(Formats.current.number(exporter.rate / 1048576, 1)) : "–"
        }
        Fact {
            objectName: "timeLeft"
            visible: page.underWay
            caption: qsTr("Time left")
            value: exporter.timeLeft !== "" ? exporter.timeLeft : "–"
        }
        Grid {
            readonly property real buttonWidth: (width - (columns - 1) * columnSpacing) / columns

            visible: exporter.state < ExportState.Aborting
            width: parent.width
            columns: page.wide && page.underWay ? 2 : 1
            columnSpacing: 2 * Look.gap
            rowSpacing: Look.gap

            ActionButton {
                objectName: "pause"
                width: parent.buttonWidth
                visible: exporter.state === ExportState.Copying || exporter.state === ExportState.Paused
                icon.name: exporter.state === ExportState.Paused ? "play_arrow" : "pause"
                text: exporter.state === ExportState.Paused ? qsTr("Resume") : qsTr("Pause")
                onClicked: exporter.state === ExportState.Paused ? exporter.resume() : exporter.pause()
            }
            ActionButton {
                objectName: "abort"
                width: parent.buttonWidth
                icon.name: "close"
                text: qsTr("Abort")
                // before the copy nothing goes
                onClicked: page.underWay ? abortQuestion.open() : exporter.abort()
            }
        }
    }

    Notice {
        objectName: "result"
        visible: page.hasEnded
        kind: exporter.state === ExportState.Done ? "good"
                                               : exporter.state === ExportState.Aborted ? "info" : "bad"
        text: page.titleOf(exporter.state)
    }
    Notice {
        objectName: "pull"
        visible: page.hasEnded && exporter.canPull
        kind: "good"
        text: qsTr("You can pull the drive now.")
    }
    Repeater {
        model: exporter.messages

        Notice {
            objectName: "message" + index
            kind: modelData.kind
            text: modelData.text
        }
    }
    ActionButton {
        objectName: "again"
        visible: page.hasEnded
        width: parent.width
        kind: "primary"
        text: qsTr("Back")
        onClicked: exporter.clear()
    }

    DirectoryChooser {
        id: chooser

        property bool forSource: false

        onChosen: {
            if (forSource) {
                exporter.source = path
            } else {
                exporter.destination = path
            }
        }
    }
    Question {
        id: confirmQuestion

        title: exporter.replacedFiles === 1
               ? qsTr("Replace 1 file?") : qsTr("Replace %1 files?").arg(exporter.replacedFiles)
        text: qsTr("%1 holds files of the same name. They are replaced once all of the copy is whole.")
              .arg(exporter.landing)
        confirmText: qsTr("Replace")
        cancelText: qsTr("Copy nothing")
        danger: true
        onAccepted: exporter.confirm(true)
        onRejected: exporter.confirm(false)
    }
    Question {
        id: abortQuestion

        title: qsTr("Abort the export?")
        text: page.abortText()
        confirmText: qsTr("Abort")
        cancelText: exporter.state === ExportState.Paused ? qsTr("Stay paused") : qsTr("Go on copying")
        danger: true
        onAccepted: exporter.abort()
    }
}
