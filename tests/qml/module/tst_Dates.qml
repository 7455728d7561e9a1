// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import OvoSharedBase 1.0
import Ovo.Test 1.0

// The same in every zone, and first what goes wrong without the module.
TestCase {
    name: "Dates"

    function init() {
        Host.begin()
    }

    function cleanup() {
        Host.end()
        Date.timeZoneUpdated()
    }

    function zones() {
        return [
            { tag: "west of Greenwich", zone: "America/New_York" },
            { tag: "Greenwich", zone: "UTC" },
            { tag: "east of Greenwich", zone: "Asia/Tokyo" },
            { tag: "half an hour off", zone: "Australia/Lord_Howe" },
            { tag: "clocks change at midnight", zone: "America/Sao_Paulo" },
            { tag: "far east, once far west", zone: "Pacific/Apia" },
        ]
    }

    function use(zone) {
        Host.useTimeZone(zone)
        Date.timeZoneUpdated()
    }

    function test_whatJavaScriptMakesOfThem() {
        use("America/New_York")
        compare(Host.day.getDate(), 6)
        compare(Host.day.getUTCDate(), 7)
        compare(String(Host.time).slice(4, 24), "Apr 1 14:05:09 1971 ")
        Host.day = Host.day
        compare(Host.day.getUTCDate(), 6)
    }

    function test_reading_data() { return zones() }
    function test_reading(row) {
        use(row.zone)
        compare(Dates.isoDate(Host.day), "2024-03-07")
        compare(Dates.isoTime(Host.time), "14:05:09")
        compare(Formats.current.date(Host.day), "07/03/2024")
        compare(Formats.current.time(Host.time), "14:05:09")
    }

    function test_momentsAreLocal_data() { return zones() }
    function test_momentsAreLocal(row) {
        use(row.zone)
        compare(Formats.current.dateOf(new Date(2024, 2, 7, 0, 30)), "07/03/2024")
        compare(Formats.current.dateOf(new Date(2024, 2, 7, 23, 30)), "07/03/2024")
    }

    function test_writing_data() { return zones() }
    function test_writing(row) {
        use(row.zone)
        // a day without midnight where clocks change then
        Host.day = Dates.date(2018, 11, 4)
        compare(Dates.isoDate(Host.day), "2018-11-04")
        Host.day = Dates.copyOf(Host.day)
        compare(Dates.isoDate(Host.day), "2018-11-04")
        Host.time = Dates.time(23, 59, 58)
        compare(Dates.isoTime(Host.time), "23:59:58")
        Host.time = Dates.time(0, 0)
        compare(Dates.isoTime(Host.time), "00:00:00")
    }

    function test_whatIsNoDate() {
        verify(isNaN(Dates.date(2023, 2, 29)))
        verify(isNaN(Dates.copyOf(new Date(NaN))))
        verify(isNaN(Dates.time(24, 0)))
        compare(Dates.isoDate(new Date(NaN)), "")
        compare(Dates.isoTime(new Date(NaN)), "")
        Host.day = Dates.date(2023, 2, 29)
        compare(Dates.isoDate(Host.day), "")
    }
}
