// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import OvoSharedBase 1.0
import QtQuick 2.15
import "../look"

// The clock. Setting it blocks, so a question says so before.
Card {
    id: card

    property string outcome
    property string outcomeKind
    // what the clocks are to be set to; an invalid Date leaves its part
    property var wanted: null

    function read() {
        clock.text = Formats.current.time(OsSettings.time)
        day.text = Formats.current.date(OsSettings.date)
    }

    function ask() {
        const date = /^(\d{4})-(\d\d)-(\d\d)$/.exec(dateField.text)
        const time = /^(\d\d?):(\d\d)(?::(\d\d))?$/.exec(timeField.text)
        const newDate = date ? Dates.date(+date[1], +date[2], +date[3]) : new Date(NaN)
        const newTime = time ? Dates.time(+time[1], +time[2], +(time[3] || 0)) : new Date(NaN)
        dateField.message = dateField.text === "" || !isNaN(newDate)
                ? "" : qsTr("There is no such day. Type it as 2026-11-21.")
        timeField.message = timeField.text === "" || !isNaN(newTime)
                ? "" : qsTr("There is no such time. Type it as 13:05 or 13:05:30.")
        if (dateField.message === "" && timeField.message === "") {
            wanted = { date: newDate, time: newTime }
            question.open()
        }
    }

    function set() {
        const result = DeviceClock.set(wanted.date, wanted.time)
        outcomeKind = result.isSet ? "good" : "bad"
        outcome = result.sentences
        read()
    }

    Connections {
        target: Formats

        function onCurrentChanged() {
            card.read()
        }
    }
    Timer {
        interval: 1000
        repeat: true
        triggeredOnStart: true
        running: card.visible
        onTriggered: card.read()
    }
    Timer {
        id: setting

        interval: 50 // a frame with the message first
        onTriggered: card.set()
    }

    Heading { text: qsTr("Clock") }
    Label {
        id: clock

        objectName: "clock"
        font.pointSize: Look.display
    }
    Label {
        id: day

        objectName: "day"
    }
    Field {
        id: dateField

        objectName: "newDate"
        caption: qsTr("New date")
        placeholderText: Dates.isoDate(OsSettings.date)
        messageKind: "bad"
        inputMethodHints: Qt.ImhDate
        onAccepted: card.ask()
    }
    Field {
        id: timeField

        objectName: "newTime"
        caption: qsTr("New time, in UTC")
        placeholderText: "13:05"
        messageKind: "bad"
        inputMethodHints: Qt.ImhTime
        onAccepted: card.ask()
    }
    ActionButton {
        objectName: "setClock"
        icon.name: "schedule"
        text: qsTr("Set the clock")
        enabled: dateField.text !== "" || timeField.text !== ""
        onClicked: card.ask()
    }
    Notice {
        objectName: "clockOutcome"
        kind: card.outcomeKind
        text: card.outcome
    }

    Question {
        id: question

        title: qsTr("Set the clock?")
        text: qsTr("This takes up to 10 seconds. The screen does not answer meanwhile.")
        confirmText: qsTr("Set")
        cancelText: qsTr("Cancel")
        onAccepted: {
            card.outcomeKind = "info"
            card.outcome = qsTr("The clock is being set …")
            setting.start()
        }
    }
}
