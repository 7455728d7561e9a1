// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import OvoSharedBase 1.0
import QtQuick 2.15
import "../look"

// Each formatter with a value, as the current locale shows it.
Card {
    id: card

    readonly property var formats: Formats.current
    // day, month and hour that cannot be taken for each other
    readonly property date moment: new Date(2026, 2, 31, 17, 5, 8)

    Heading { text: qsTr("How values look") }
    Label {
        objectName: "localeInUse"
        text: ProjectLocale.isOpen ? qsTr("Locale of the project: %1").arg(card.formats.localeName())
                                   : qsTr("Locale of the device: %1").arg(card.formats.localeName())
    }
    Label {
        objectName: "distances"
        muted: true
        text: ProjectLocale.distances
    }
    Fact {
        objectName: "shownLength"
        caption: qsTr("12.5 metres")
        value: card.formats.length(12.5)
    }
    Fact {
        objectName: "shownDistance"
        caption: qsTr("Distance counter at 1234.567")
        value: card.formats.distance(1234.567)
    }
    Fact {
        objectName: "shownPipe"
        caption: qsTr("Pipe of 300 millimetres")
        value: card.formats.size(300)
    }
    Fact {
        caption: qsTr("Number")
        value: card.formats.number(1234.5, 1)
    }
    Fact {
        objectName: "shownSpeed"
        caption: qsTr("Speed in")
        value: card.formats.speedUnit()
    }
    Fact {
        objectName: "shownTemperature"
        caption: qsTr("Temperature in")
        value: card.formats.temperatureUnit()
    }
    Fact {
        caption: qsTr("Angle in")
        value: card.formats.angleUnit()
    }
    Fact {
        caption: qsTr("Pressure in")
        value: card.formats.pressureUnit()
    }
    Fact {
        objectName: "shownDate"
        caption: qsTr("Date")
        value: card.formats.dateOf(card.moment)
    }
    Fact {
        objectName: "shownTime"
        caption: qsTr("Time")
        value: card.formats.time(card.moment)
    }
    Fact {
        caption: qsTr("Date and time")
        value: card.formats.dateTime(card.moment)
    }
    Fact {
        objectName: "shownBytes"
        caption: qsTr("Size of a file")
        value: card.formats.bytes(1610612736)
    }
    Field {
        id: typed

        objectName: "typedDistance"
        caption: qsTr("Type a distance")
        unit: card.formats.distanceUnit()
        inputMethodHints: Qt.ImhFormattedNumbersOnly
        message: text === "" ? qsTr("Both point and comma are accepted.")
                             : qsTr("Read as %1.").arg(card.formats.distance(
                                                           card.formats.distanceFrom(text)))
    }
}
