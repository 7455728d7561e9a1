// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Qt.labs.folderlistmodel 2.15
import OvoFieldHost 1.0
import "../look"

// Lets the user walk to a directory, or to a file where files are wanted, too. Enter opens what is
// highlighted, Backspace opens the parent, Escape leaves everything as it was.
T.Dialog {
    id: chooser

    // where the user is; absolute, without "/" at its end
    property string path: Places.home
    property bool files: false
    property string chooseText: qsTr("Choose this directory")

    // a local path
    signal chosen(string path)

    function openAt(start) {
        path = start !== "" ? start : Places.home
        open()
    }

    function enter(filePath, isDirectory) {
        if (isDirectory) {
            path = filePath
        } else {
            choose(filePath)
        }
    }

    function openParent() {
        path = path.substring(0, path.lastIndexOf("/")) || "/"
    }

    function choose(filePath) {
        close()
        chosen(filePath)
    }

    parent: T.Overlay.overlay
    x: (parent ? parent.width - width : 0) / 2
    y: (parent ? parent.height - height : 0) / 2
    width: Math.min(900 * Look.fontScale, (parent ? parent.width : 800) - 2 * Look.gap)
    height: (parent ? parent.height : 480) - 2 * Look.gap
    padding: 2 * Look.gap
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape
    onOpened: list.forceActiveFocus()

    T.Overlay.modal: Rectangle {
        color: "#99000000"
    }

    background: Rectangle {
        radius: Look.radius
        color: Look.surface
        border.color: Look.outline
    }
    contentItem: ColumnLayout {
        LayoutMirroring.enabled: Look.mirrored
        LayoutMirroring.childrenInherit: true
        spacing: Look.gap

        Label {
            objectName: "chooserPath"
            text: chooser.path
            font.weight: Font.DemiBold
            maximumLineCount: 2
            wrapMode: Text.WrapAnywhere
        }
        Flow {
            Layout.fillWidth: true
            spacing: Look.gap

            ActionButton {
                objectName: "chooserUp"
                icon.name: "arrow_upward"
                text: qsTr("Up")
                enabled: chooser.path !== "/"
                onClicked: chooser.openParent()
            }
            ActionButton {
                objectName: "chooserHome"
                icon.name: "home"
                text: qsTr("Home")
                onClicked: chooser.path = Places.home
            }
            ActionButton {
                objectName: "chooserMedia"
                icon.name: "usb"
                text: qsTr("Drives")
                onClicked: chooser.path = "/media"
            }
        }
        ListView {
            id: list

            objectName: "chooserList"
            Layout.fillWidth: true
            Layout.fillHeight: true
            activeFocusOnTab: true
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: true
            T.ScrollBar.vertical: Scroll {}

            Keys.onReturnPressed: if (currentItem) currentItem.clicked()
            Keys.onEnterPressed: if (currentItem) currentItem.clicked()
            Keys.onPressed: {
                if (event.key === Qt.Key_Backspace && chooser.path !== "/") {
                    chooser.openParent()
                    event.accepted = true
                }
            }

            // reads directories on a thread of its own
            model: FolderListModel {
                id: folder

                // encoded twice: the model decodes the local path a second time
                folder: "file://" + chooser.path.split("/").map(
                            name => encodeURIComponent(encodeURIComponent(name))).join("/")
                showFiles: chooser.files
                showDirsFirst: true
                caseSensitive: false
            }
            delegate: T.ItemDelegate {
                id: entry

                objectName: "entry:" + fileName
                width: ListView.view.width
                implicitHeight: Math.max(Look.touch,
                                         implicitContentHeight + topPadding + bottomPadding)
                padding: Look.gap
                rightPadding: 2 * Look.gap
                highlighted: ListView.isCurrentItem && list.activeFocus
                text: fileName
                onClicked: chooser.enter(filePath, fileIsDir)

                contentItem: RowLayout {
                    spacing: Look.gap

                    Icon {
                        name: fileIsDir ? "folder" : "insert_drive_file"
                        color: entry.highlighted ? Look.accentText : Look.accent
                    }
                    Label {
                        text: entry.text
                        wrapMode: Text.WrapAnywhere
                        color: entry.highlighted ? Look.accentText : Look.text
                    }
                }
                background: Rectangle {
                    radius: Look.radius
                    color: entry.highlighted ? Look.accent
                                             : entry.down ? Look.raised : "transparent"
                }
            }

            Label {
                anchors.centerIn: parent
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                visible: folder.status === FolderListModel.Ready && folder.count === 0
                muted: true
                text: chooser.files ? qsTr("This directory is empty.")
                                    : qsTr("There are no directories in here.")
            }
        }
        GridLayout {
            Layout.fillWidth: true
            columns: cancelButton.implicitWidth + chooseButton.implicitWidth + columnSpacing
                     <= parent.width ? 2 : 1
            columnSpacing: 2 * Look.gap
            rowSpacing: Look.gap

            ActionButton {
                id: cancelButton

                objectName: "chooserCancel"
                Layout.fillWidth: true
                text: qsTr("Cancel")
                onClicked: chooser.close()
            }
            ActionButton {
                id: chooseButton

                objectName: "chooserChoose"
                Layout.fillWidth: true
                kind: "primary"
                text: chooser.chooseText
                onClicked: chooser.choose(chooser.path)
            }
        }
    }
}
