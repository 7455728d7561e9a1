// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import "qrc:/screens/look"
import "qrc:/screens/recording"

// A recording as an inspector makes one, and its trace.
Item {
    id: root

    width: 1280
    height: 800

    Rectangle {
        anchors.fill: parent
        color: Look.background
    }
    Loader {
        id: loader

        anchors.fill: parent
        source: "qrc:/screens/recording/RecordingPage.qml"
    }

    ScreenCase {
        name: "Recording"

        function init() {
            loader.active = false
            loader.active = true
        }

        function shown(objectName) {
            return screenTest.find(root, objectName) !== null
        }

        function fill(objectName, text) {
            const field = item(objectName)
            bringIntoView(field)
            mouseClick(field.input)
            field.input.selectAll()
            keyClick(Qt.Key_Delete)
            type(text)
        }

        // fifty times faster
        function hurry() {
            const box = item("speed").box
            box.forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Down)
            compare(item("speed").displayText, "50 times faster")
        }

        function secondsRecorded() {
            const parts = item("clock").text.split(":")
            return 60 * Number(parts[0]) + Number(parts[1])
        }

        function test_aRecordingAndItsTrace() {
            fill("clip", screenTest.directory + "/clip.mp4")
            hurry()
            tap("start")
            verify(!shown("start"))
            verify(item("clip").readOnly)
            compare(item("state").text, "Recording")
            tryVerify(() => secondsRecorded() >= 8, patience)
            verify(item("liveDistance").points > 2)
            tryVerify(() => item("livePan").curve.high > 0, patience)
            compare(item("liveDistance").value.split(" ")[1], "m")
            verify(Number(item("liveDistance").value.split(" ")[0]) > 1)

            tap("pause")
            compare(item("state").text, "Paused")
            tryVerify(() => item("state").visible, patience)
            const before = secondsRecorded()
            const distance = item("liveDistance").value
            click("observe")
            click("observe")
            compare(item("observations").value, "2")
            compare(secondsRecorded(), before)
            compare(item("liveDistance").value, distance)

            tap("resume")
            compare(item("state").text, "Recording")
            tryVerify(() => secondsRecorded() >= before + 5, patience)
            item("stop").forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Enter)
            verify(!shown("live"))
            verify(shown("start"))
            const samples = screenTest.samplesIn("clip.txt")
            verify(samples > 50)
            const summary = item("summary").text
            verify(/^Recorded ([0-9.]+ s|[0-9]+ min [0-9]{2} s) of video, /.test(summary), summary)
            verify(summary.endsWith(", " + samples + " samples in \"" + screenTest.directory
                                    + "/clip.txt\"."), summary)

            // its file, read again
            compare(item("traceFile").text, screenTest.directory + "/clip.txt")
            tryVerify(() => shown("trace"), patience)
            verify(item("headline").text.startsWith(
                "\"" + screenTest.directory + "/clip.txt\": " + samples + " samples, "))
            for (const plot of ["traceDistance", "tracePan", "traceTilt"]) {
                verify(item(plot).points > 100, plot)
            }
            verify(item("tracePan").curve.low < 0)
            verify(item("tracePan").curve.high > 0)
            compare(item("traceTilt").curve.low, 0)
            compare(item("traceDistance").caption, "Distance in m")
        }

        function test_theLinesAreDrawn() {
            screenTest.makeFile("drawn.txt", "[IndexInfo]\nDistanceUnit=ft\n[Indexing]\n"
                + "Val00000=0.000;0.000;0;0.000;0.000\nVal00001=20.000;10.000;0;0.000;0.000\n")
            fill("traceFile", screenTest.directory + "/drawn.mp4")
            tap("readTrace")
            tryVerify(() => shown("trace"), patience)
            const plot = item("traceDistance")
            compare(plot.caption, "Distance in ft")
            const texts = screenTest.visibleTexts(plot)
            compare(texts.slice(1), ["0", "5", "10", "0", "5", "10", "15", "20"])
            let drawn = 0
            tryVerify(function() {
                plot.grabToImage(grab => drawn = screenTest.pixelsOf(grab.image, Look.accent))
                return drawn > plot.width / 2
            }, 5000, "there is no line")
        }

        function test_anEarlierFileIsContinued() {
            screenTest.makeFile("old.txt", "[Indexing]\nVal00012=12.480;3.215;0;-45.000;10.500\n")
            fill("clip", screenTest.directory + "/old.mp4")
            keyClick(Qt.Key_Enter)
            compare(item("continued").text, "Continues \"" + screenTest.directory
                    + "/old.txt\" after 1 sample.")
            tap("stop")
            verify(screenTest.samplesIn("old.txt") >= 2)
            tryVerify(() => shown("headline"), patience)
            verify(item("headline").text.endsWith(", 2 recordings"), item("headline").text)
        }

        function test_aPlaceThatIsNotFit() {
            fill("clip", screenTest.directory + "/missing/clip.mp4")
            tap("start")
            compare(item("problem").text,
                    "There is no directory \"" + screenTest.directory + "/missing\".")
            verify(!shown("live"))
            verify(shown("start"))
        }

        function test_aTraceThatCannotBeRead() {
            fill("traceFile", screenTest.directory + "/missing.mp4")
            keyClick(Qt.Key_Enter)
            tryVerify(() => shown("traceProblem"), patience)
            compare(item("traceProblem").text, "Cannot read \"" + screenTest.directory
                    + "/missing.txt\": No such file or directory")
            verify(!shown("trace"))
        }

        function test_aTraceWithDoubts() {
            screenTest.makeFile("cut.txt", "[Indexing]\nVal00000=0.000;0.000;0;0.000;0.000\nVal0\n")
            fill("traceFile", screenTest.directory + "/cut.txt")
            tap("readTrace")
            tryVerify(() => screenTest.visibleTexts(root).includes("Line 3 could not be read."),
                      patience)
            verify(shown("trace"))
        }

        function test_aRecordingIsWrittenWhenTheScreenGoes() {
            fill("clip", screenTest.directory + "/left.mp4")
            tap("start")
            loader.active = false
            tryVerify(() => screenTest.samplesIn("left.txt") > 0, patience)
            loader.active = true
        }

        function test_nothingIsCutOff_data() {
            return [{ tag: "light", mirrored: false }, { tag: "right to left", mirrored: true }]
        }

        function test_nothingIsCutOff(data) {
            Look.mirrored = data.mirrored
            verifyLayoutInAllSizes(root)
            fill("clip", screenTest.directory + "/layout" + data.tag[0] + ".mp4")
            click("start")
            verifyLayoutInAllSizes(root)
            click("pause")
            verifyLayout(root)
            verifyLayoutInGerman(root)
            click("stop")
            tryVerify(() => shown("trace"), patience)
            verifyLayoutInAllSizes(root)
            verifyLayoutInGerman(root)
        }
    }
}
