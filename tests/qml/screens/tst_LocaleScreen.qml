// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import QtQuick 2.15
import QtTest 1.15
import "qrc:/screens"
import "qrc:/screens/look"

// The whole window with the screen "Units and language": what it switches is seen everywhere.
Item {
    id: root

    Main {
        id: window

        page: "locale"
        width: 1280
        height: 800
    }

    ScreenCase {
        name: "Locale"
        subject: window

        function init() {
            ProjectLocale.close()
            ProjectLocale.device = "en_GB"
            window.show("locale")
        }

        function shown(objectName) {
            return item(objectName).value
        }

        function test_layout_data() {
            return [
                { tag: "English", catalog: "", country: "" },
                { tag: "German, with a catalog", catalog: ":/catalogs/metric.json", country: "D" },
                { tag: "right to left", catalog: "", country: "IL" }
            ]
        }

        function test_layout(data) {
            ProjectLocale.catalog = data.catalog
            ProjectLocale.country = data.country
            verifyLayoutInAllSizes(window)
            Look.dark = true
            verifyLayout(window)
        }

        function test_countryAndLanguageOfTheProject() {
            compare(shown("shownDistance"), "1234.57 m")
            compare(shown("shownTime"), "17:05:08")
            choose("country", "United States (USA)")
            choose("language", "American English (ENG)")
            compare(shown("shownDistance"), "1234.57 ft")
            compare(shown("shownLength"), "41.01 ft")
            compare(shown("shownPipe"), "11.81 inch")
            compare(shown("shownSpeed"), "ft/min")
            compare(shown("shownTemperature"), "°F")
            compare(shown("shownDate"), "3/31/2026")
            compare(item("localeInUse").text, "Locale of the project: en_US")
            choose("country", "Deutschland (D)")
            choose("language", "Deutsch (DEU)")
            compare(shown("shownDistance"), "1234,57 m")
            compare(shown("shownDate"), "31.03.2026")
        }

        function test_theProjectIsClosed() {
            verify(!item("closeProject").enabled)
            choose("country", "Deutschland (D)")
            compare(shown("shownDistance"), "1234,57 m")
            tap("closeProject")
            compare(shown("shownDistance"), "1234.57 m")
            compare(item("localeInUse").text, "Locale of the device: en_GB")
            compare(item("country").currentIndex, 0)
        }

        function test_theDeviceCountsWithoutAProject() {
            choose("device", "Deutsch, Deutschland")
            compare(shown("shownDistance"), "1234,57 m")
            choose("country", "United States (USA)")
            compare(shown("shownDistance"), "1234.57 ft")
            choose("device", "français, France")
            compare(shown("shownDistance"), "1234.57 ft")
            choose("country", "–")
            compare(shown("shownDistance"), "1234,57 m")
        }

        function test_rightToLeft() {
            const rail = item("rail")
            compare(rail.mapToItem(null, 0, 0).x, 0)
            choose("country", "ישראל (IL)")
            tryVerify(() => rail.mapToItem(null, 0, 0).x === window.width - rail.width, patience)
            choose("country", "–")
            tryVerify(() => rail.mapToItem(null, 0, 0).x === 0, patience)
        }

        function test_catalog() {
            choose("catalog", "imperial.json")
            compare(item("country").currentText, "United States (USA)")
            compare(item("distances").text, "Distances are in ft, as the catalog has it.")
            verify(screenTest.visibleTexts(window.contentItem).includes("inch, from the catalog"))
            choose("catalog", "inches.json")
            verify(item("distances").text.startsWith("Distances are in inch"))
            verify(item("distances").text.endsWith("Shown as m."))
            choose("catalog", "–")
            verify(!screenTest.visibleTexts(window.contentItem).includes("SEC_Name"))
        }

        function test_unknownCatalog_data() {
            return [
                { tag: "no such file", name: "none.json", says: "cannot be read" },
                { tag: "not what is asked for", name: "broken.json",
                  says: "cannot be used. Line 1, column 1" }
            ]
        }

        function test_unknownCatalog(data) {
            choose("catalog", "imperial.json")
            fill("catalogFile", screenTest.path(data.name))
            keyClick(Qt.Key_Return)
            const message = item("catalogFile").message
            verify(message.includes(data.says), message)
            verify(screenTest.visibleTexts(window.contentItem).includes(message))
            compare(ProjectLocale.catalogName, "Sewers, imperial")
            compare(shown("shownDistance"), "1234.57 ft")
            choose("catalog", "metric.json")
            compare(item("catalogFile").message, "")
        }

        function test_catalogOfAnUnknownCountry() {
            fill("catalogFile", screenTest.path("strange.json"))
            keyClick(Qt.Key_Enter)
            compare(ProjectLocale.catalogName, "Sewers, metric")
            verify(screenTest.visibleTexts(window.contentItem)
                   .includes("The catalog's country code \"XX\" is not known."))
            compare(item("country").displayText, "XX")
            choose("country", "Schweiz (CH)")
            compare(ProjectLocale.warnings, [])
        }

        function test_aDistanceIsTyped_data() {
            return [{ tag: "point", text: "1.5" }, { tag: "comma", text: "1,5" }]
        }

        function test_aDistanceIsTyped(data) {
            choose("country", "France (F)")
            fill("typedDistance", data.text)
            compare(item("typedDistance").message, "Read as 1,50 m.")
        }

        function test_languageOfTheScreens() {
            choose("country", "Schweiz (CH)")
            choose("language", "Deutsch (DEU)")
            compare(item("deviceTab").text, "Gerät")
            compare(item("country").currentText, "Schweiz (CH)")
            choose("language", "français (FRA)") // has no texts of its own
            compare(item("deviceTab").text, "Device")
            choose("device", "Deutsch, Deutschland")
            compare(item("deviceTab").text, "Device")
            tap("closeProject")
            compare(item("deviceTab").text, "Gerät")
            compare(item("device").currentText, "Deutsch, Deutschland")
        }

        function test_theTabKeyGoesFromTopToBottom() {
            item("localeTab").forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Down)
            verify(item("deviceTab").activeFocus)
            keyClick(Qt.Key_Up)
            verify(item("localeTab").activeFocus)
            keyClick(Qt.Key_Tab)
            keyClick(Qt.Key_Tab)
            verify(item("darkToggle").activeFocus)
            for (const name of ["device", "catalog", "catalogFile", "country",
                                "language"]) {
                keyClick(Qt.Key_Tab)
                verify(item(name).activeFocus, name)
            }
            keyClick(Qt.Key_Backtab)
            verify(item("country").activeFocus)
        }

        function test_keysAndColours() {
            keyClick(Qt.Key_6, Qt.ControlModifier)
            compare(window.page, "device")
            click("localeTab")
            compare(window.page, "locale")
            tap("darkToggle")
            verify(Look.dark)
            verify(Qt.colorEqual(window.color, "#10171a"))
        }
    }
}
