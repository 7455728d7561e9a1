// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import OvoSharedBase 1.0
import Ovo.Test 1.0

Item {
    id: root

    readonly property LocaleFormats held: Formats.current // changes with the locale, too

    Text { id: length; text: Formats.current.length(12.5) }
    Text { id: distance; text: Formats.current.distance(12.5) }
    Text { id: size; text: Formats.current.size(300) }
    Text { id: number; text: Formats.current.number(1234.567, 1) }
    Text { id: bytes; text: Formats.current.bytes(1536) }
    Text { id: heldNumber; text: root.held.number(0.5) }
    Text { id: day; text: Formats.current.date(Host.day) }

    SignalSpy {
        id: changes

        target: Formats
        signalName: "currentChanged"
    }

    TestCase {
        name: "Formats"

        function init() {
            Host.begin()
            changes.clear()
        }

        function cleanup() {
            Host.end()
        }

        function test_bindingsFollowTheLocale() {
            compare([length.text, distance.text, size.text, number.text, bytes.text, heldNumber.text, day.text],
                    ["12.50 m", "12.50 m", "300 mm", "1234.6", "1.5 KB", "0.50", "07/03/2024"])

            Host.useLocale("de_DE")
            verify(changes.count > 0)
            compare([length.text, distance.text, size.text, number.text, bytes.text, heldNumber.text, day.text],
                    ["12,50 m", "12,50 m", "300 mm", "1234,6", "1,5 KB", "0,50", "07.03.2024"])
        }

        function test_bindingsFollowTheUnitOfTheProject() {
            Host.openProjectIn("ft")
            verify(changes.count > 0)
            compare([length.text, distance.text, size.text], ["41.01 ft", "12.50 ft", "11.81 inch"])
            compare(Formats.current.distanceUnit(), "ft")
            compare(Formats.current.sizeUnit(), "inch")
            compare(Formats.current.speedUnit(), "ft/min")

            // distances of a project in inches are shown in metres
            Host.openProjectIn("inch")
            compare([length.text, size.text], ["12.50 m", "11.81 inch"])
            compare(Formats.current.distanceUnit(), "m")
        }

        function test_numbersAreRead() {
            compare(Formats.current.distanceFrom("12,5"), 12.5)
            compare(Formats.current.distanceFrom("12.5"), 12.5)
            compare(Formats.current.distanceFrom("twelve"), 0)
        }

        function test_valuesOfAnyType() {
            compare(Formats.current.text(3), "3")
            compare(Formats.current.text(2.5), "2.50")
            compare(Formats.current.text("as it is"), "as it is")
            compare(Formats.current.bytes(0), "0.0 B")
            compare(Formats.current.bytes(5 * 1024 * 1024 * 1024), "5.0 GB")
        }

        function test_unitsOfTheLocale() {
            compare(Formats.current.temperatureUnit(), "°F")
            compare(Formats.current.angleUnit(), "°")
            compare(Formats.current.pressureUnit(), "mbar")
            compare(Formats.current.columnUnit("OBS_Distance"), "m")
            compare(Formats.current.localeName(), "en_GB")
            compare(Formats.current.isRightToLeft(), false)

            Host.useLocale("ar_EG")
            compare(Formats.current.temperatureUnit(), "°C")
            compare(Formats.current.isRightToLeft(), true)
        }

        function test_times_data() {
            return [
                { tag: "with a zone at the end", locale: "de_DE", time: "14:05:09", dateTime: "07.03.24 14:05" },
                { tag: "with AM and PM", locale: "en_US", time: "2:05:09 PM", dateTime: "3/7/24 2:05 PM" },
                { tag: "with letters that are no zone", locale: "eo", time: "14-a horo kaj 5:09", dateTime: "24-03-07 14:05" },
                { tag: "with the zone in brackets", locale: "eu_ES", time: "14:05:09", dateTime: "24/3/7 14:05" },
            ]
        }

        function test_times(row) {
            Host.useLocale(row.locale)
            compare(Formats.current.time(Host.time), row.time)
            const moment = new Date(2024, 2, 7, 14, 5, 9)
            compare(Formats.current.time(moment), row.time)
            compare(Formats.current.dateTime(moment), row.dateTime)
        }

        function test_noDateIsEmpty() {
            const none = new Date(NaN)
            compare(Formats.current.date(none), "")
            compare(Formats.current.dateOf(none), "")
            compare(Formats.current.time(none), "")
            compare(Formats.current.dateTime(none), "")
        }

        function test_currentIsNeverTheObjectBefore() {
            const before = Formats.current
            Host.useLocale("fr_FR")
            Host.openProjectIn("m")
            verify(before !== null)
            compare(before.number(0.5), "0,50") // still usable
        }
    }
}
