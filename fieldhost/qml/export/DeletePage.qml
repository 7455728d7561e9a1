// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15
import OvoFieldHost 1.0
import OvoSharedBase 1.0
import "../look"
import "sizes.js" as Sizes

// Deletes directories and files, once their size is known and the user has agreed.
Page {
    id: page

    readonly property bool busy: deleter.busy

    function sizeText(bytes) {
        return bytes < 0 ? qsTr("Counting …") : Sizes.text(Formats.current, bytes)
    }

    function resultOf(state) {
        switch (state) {
        case DeleteState.Done:
            return qsTr("Everything is deleted")
        case DeleteState.Failed:
            return qsTr("Not everything is deleted")
        case DeleteState.Aborted:
            return qsTr("The deletion was aborted")
        default:
            return ""
        }
    }

    title: qsTr("Delete")

    DeleteModel {
        id: deleter
    }

    Card {
        visible: deleter.entries.length > 0 || !page.busy

        Heading { text: qsTr("To delete") }
        Label {
            objectName: "nothing"
            visible: deleter.entries.length === 0
            muted: true
            text: qsTr("Nothing is chosen.")
        }
        Repeater {
            model: deleter.entries

            RowLayout {
                width: parent.width
                objectName: "entry" + index
                spacing: Look.gap

                Icon {
                    name: modelData.kind === "directory" ? "folder"
                                                         : modelData.kind === "link"
                                                           ? "link" : "insert_drive_file"
                    color: Look.accent
                }
                Column {
                    Layout.fillWidth: true

                    Label {
                        wrapMode: Text.WrapAnywhere
                        text: modelData.path
                    }
                    Label {
                        objectName: "entrySize" + index
                        muted: true
                        text: modelData.kind === "link"
                              ? qsTr("A link; what it leads to stays") : page.sizeText(modelData.size)
                    }
                }
                ActionButton {
                    objectName: "remove" + index
                    enabled: !page.busy
                    icon.name: "close"
                    text: qsTr("Keep")
                    onClicked: deleter.remove(index)
                }
            }
        }
        Fact {
            objectName: "totalSize"
            visible: deleter.entries.length > 1
            caption: qsTr("Total")
            value: page.sizeText(deleter.totalSize)
        }
        ActionButton {
            objectName: "choose"
            width: parent.width
            visible: !page.busy
            icon.name: "add"
            text: qsTr("Choose a directory or file")
            onClicked: chooser.openAt(chooser.path)
        }
    }
    ActionButton {
        objectName: "delete"
        visible: !page.busy
        width: parent.width
        kind: "danger"
        icon.name: "delete"
        text: qsTr("Delete")
        enabled: deleter.entries.length > 0 && deleter.totalSize >= 0
        onClicked: question.open()
    }
    Card {
        visible: page.busy

        Heading {
            objectName: "stateTitle"
            text: deleter.state === DeleteState.Aborting ? qsTr("Aborting") : qsTr("Deleting")
        }
        Bar {
            objectName: "bar"
            indeterminate: deleter.bytesToDelete <= 0
            value: indeterminate ? 0 : deleter.bytes / deleter.bytesToDelete
        }
        Label {
            text: qsTr("The directory that is being deleted is deleted as a whole.")
        }
        ActionButton {
            objectName: "abort"
            width: parent.width
            enabled: deleter.state === DeleteState.Deleting
            icon.name: "close"
            text: qsTr("Abort")
            onClicked: deleter.abort()
        }
    }
    Notice {
        objectName: "result"
        kind: deleter.state === DeleteState.Done ? "good"
                                               : deleter.state === DeleteState.Aborted ? "info" : "bad"
        text: page.resultOf(deleter.state)
    }
    Repeater {
        model: deleter.messages

        Notice {
            objectName: "message" + index
            kind: modelData.kind
            text: modelData.text
        }
    }

    DirectoryChooser {
        id: chooser

        files: true
        onChosen: deleter.add(path)
    }
    Question {
        id: question

        title: qsTr("Delete for good?")
        text: deleter.entries.map(entry => entry.path).join("\n") + "\n\n"
              + qsTr("%1 in all. This cannot be undone.").arg(page.sizeText(deleter.totalSize))
        confirmText: qsTr("Delete")
        cancelText: qsTr("Keep everything")
        danger: true
        onAccepted: deleter.start()
    }
}
