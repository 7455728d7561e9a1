// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoSharedBase 1.0
import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import "look"

// The window: a rail with the screens, and the one that is shown. A screen is made when it is shown
// first, and goes on with its work while another one is shown.
T.ApplicationWindow {
    id: window

    // the screen that is shown; one of the names below
    property string page: "export"
    // how it starts; later, Look has the answer
    property bool dark: false
    property real fontScale: 1
    readonly property bool mirrored: Formats.current.isRightToLeft()

    function show(name) {
        page = name
    }

    // a function of its own: a change of the language evaluates every binding again
    function titleOf(name) {
        switch (name) {
        case "export":
            return qsTr("Export")
        case "delete":
            return qsTr("Delete")
        case "form":
            return qsTr("Inspection")
        case "recording":
            return qsTr("Recording")
        case "locale":
            return qsTr("Units and language")
        default:
            return qsTr("Device")
        }
    }

    width: 1280
    height: 800
    visible: true
    title: qsTr("Field host")
    color: Look.background
    onDarkChanged: Look.dark = dark
    onFontScaleChanged: Look.fontScale = fontScale
    onMirroredChanged: Look.mirrored = mirrored

    // no JavaScript: a model that a binding makes is made anew with each change of the language,
    // and the screens with it
    ListModel {
        id: pages

        ListElement { name: "export"; icon: "usb"; source: "qrc:/screens/export/ExportPage.qml" }
        ListElement { name: "delete"; icon: "delete"; source: "qrc:/screens/export/DeletePage.qml" }
        ListElement { name: "form"; icon: "assignment"; source: "qrc:/screens/forms/FormPage.qml" }
        ListElement { name: "recording"; icon: "videocam"; source: "qrc:/screens/recording/RecordingPage.qml" }
        ListElement { name: "locale"; icon: "language"; source: "qrc:/screens/locale/LocalePage.qml" }
        ListElement { name: "device"; icon: "settings"; source: "qrc:/screens/device/DevicePage.qml" }
    }

    Item {
        anchors.fill: parent
        LayoutMirroring.enabled: window.mirrored
        LayoutMirroring.childrenInherit: true

        Rail {
            id: rail

            objectName: "rail"
            anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
            wide: !Look.hasIcons || window.width >= 1100 * Look.fontScale
            pages: pages
            page: window.page
            titleOf: window.titleOf
            onChosen: window.show(name)
        }
        Item {
            anchors { left: rail.right; right: parent.right; top: parent.top; bottom: parent.bottom }

            Repeater {
                model: pages

                Loader {
                    readonly property bool isShown: window.page === model.name

                    objectName: model.name + "Loader"
                    anchors.fill: parent
                    active: false
                    visible: isShown
                    source: model.source
                    onIsShownChanged: active = active || isShown
                    Component.onCompleted: active = isShown

                    Shortcut {
                        sequence: "Ctrl+" + (index + 1)
                        onActivated: window.show(model.name)
                    }
                }
            }
        }
    }
}
