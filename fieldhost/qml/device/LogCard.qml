// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import QtQuick 2.15
import "../look"

// What the library and the host have logged.
Card {
    id: card

    Heading { text: qsTr("Log") }
    Choice {
        objectName: "threshold"
        caption: qsTr("Keep")
        textRole: "text"
        model: [
            { text: qsTr("Errors"), value: 1 },
            { text: qsTr("Errors and warnings"), value: 2 },
            { text: qsTr("Errors, warnings and information"), value: 3 },
            { text: qsTr("Everything"), value: 4 }
        ]
        // by the model, too: it begins again with its first entry in another language
        currentIndex: model.length > 0 ? LogEntries.threshold - 1 : -1
        onActivated: LogEntries.threshold = index + 1
    }
    Label {
        visible: LogEntries.lines.length === 0
        muted: true
        text: qsTr("Nothing has been logged.")
    }
    Repeater {
        model: LogEntries.lines.slice(0, 20)

        Label {
            objectName: "logLine" + index
            font.pointSize: Look.small
            text: modelData
        }
    }
    ActionButton {
        objectName: "clearLog"
        icon.name: "delete"
        text: qsTr("Clear the log")
        enabled: LogEntries.lines.length > 0
        onClicked: LogEntries.clear()
    }
}
