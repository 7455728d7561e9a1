// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import QtQuick 2.15
import QtTest 1.15
import "qrc:/screens"
import "qrc:/screens/look"

// Walks through the window as a user does, and takes its picture in each state.
Item {
    Main {
        id: window
    }

    ScreenCase {
        name: "Screenshots"
        subject: window

        function init() {
            screenTest.watchMessages()
            resize(1280, 800)
        }

        function resize(width, height) {
            window.width = width
            window.height = height
            tryVerify(() => window.contentItem.width === width
                      && window.contentItem.height === height, patience)
            waitForRendering(window.contentItem, 300) // positions are given before a frame
        }

        function save(name) {
            waitForRendering(window.contentItem, 300)
            wait(300) // ripples of layouts, and the frames of a chart
            screenTest.save(window, name)
        }

        // in German, dark, small and with large fonts
        function saveVariant(name, country, language, dark, width, height, scale) {
            ProjectLocale.country = country
            ProjectLocale.language = language
            Look.dark = dark
            Look.fontScale = scale
            resize(width, height)
            save(name)
            ProjectLocale.close()
            Look.dark = false
            Look.fontScale = 1
            resize(1280, 800)
        }

        function test_1_export() {
            window.show("export")
            save("export")
            tap("chooseSource")
            tryVerify(() => item("chooserList").activeFocus, patience)
            tap("entry:Mill Lane 2026")
            tryVerify(() => item("chooserPath").text.endsWith("2026"), patience)
            save("export-chooser")
            tap("chooserChoose")
            tap("useDrive")
            wait(500)
            save("export-chosen")
            // what was said stays in its language
            ProjectLocale.country = "D"
            ProjectLocale.language = "DEU"
            click("start")
            tryVerify(() => item("bar").value > 0.4, 60000)
            click("pause")
            tryVerify(() => item("stateTitle").text === "Angehalten", patience)
            saveVariant("export-small-german", "D", "DEU", false, 800, 480, 1)
            saveVariant("export-german-large-dark", "D", "DEU", true, 1280, 800, 1.5)
            click("abort")
            tap("questionConfirm")
            click("again")
            click("start")
            tryVerify(() => item("bar").value > 0.4, 60000)
            screenTest.save(window, "export-copying")
            click("pause")
            tryVerify(() => item("stateTitle").text === "Paused", patience)
            save("export-paused")
            click("abort")
            item("questionConfirm")
            save("export-abort")
            keyClick(Qt.Key_Escape)
            click("pause")
            tryVerify(() => screenTest.find(window.contentItem, "result") !== null, 120000)
            save("export-done")
            saveVariant("export-done-dark", "", "", true, 1280, 800, 1)
        }

        function test_2_delete() {
            window.show("delete")
            tap("choose")
            tryVerify(() => item("chooserList").activeFocus, patience)
            tap("entry:Mill Lane 2026")
            tap("chooserChoose")
            wait(1000)
            save("delete")
        }

        function test_3_form() {
            window.show("form")
            fill("OBJ_Key", "A section whose name is too long")
            fill("OBJ_Size", "wide")
            fill("SEC_Length", "12.5")
            click("accept")
            save("form")
            saveVariant("form-german", "D", "DEU", false, 1280, 800, 1)
            saveVariant("form-small-large-fonts", "", "", false, 800, 480, 1.5)
        }

        function test_4_recording() {
            window.show("recording")
            fill("clip", "/media/inspector/Mill Lane 2026/Section 1/inspection.mp4")
            choose("speed", "50 times faster")
            click("start")
            tryVerify(() => item("clock").text >= "0:40", patience)
            click("observe")
            save("recording")
            saveVariant("recording-german-dark", "D", "DEU", true, 1280, 800, 1)
            saveVariant("recording-small", "", "", false, 800, 480, 1)
            click("pause")
            click("stop")
            tryVerify(() => screenTest.find(window.contentItem, "trace") !== null, patience)
            bringIntoView(item("traceTilt"))
            save("recording-trace")
        }

        function test_5_locale() {
            window.show("locale")
            choose("catalog", "imperial.json")
            save("locale")
            choose("catalog", "metric.json")
            save("locale-german")
            choose("country", "ישראל (IL)")
            choose("language", "עברית (HEB)")
            save("locale-right-to-left")
            choose("catalog", "–")
            tap("closeProject")
            fill("catalogFile", "/media/inspector/sewers.json")
            keyClick(Qt.Key_Return)
            Look.dark = true
            save("locale-unknown-catalog-dark")
            Look.dark = false
            saveVariant("locale-small", "CH", "DEU", false, 800, 480, 1)
        }

        function test_6_device() {
            window.show("device")
            click("lookAtDrives")
            tryVerify(() => item("lookAtDrives").enabled, patience)
            save("device")
            saveVariant("device-german-dark", "D", "DEU", true, 1280, 800, 1)
            fill("newTime", "13:05")
            click("setClock")
            item("questionConfirm")
            save("device-clock")
            keyClick(Qt.Key_Escape)
        }
    }
}
