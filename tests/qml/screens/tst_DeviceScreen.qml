// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import QtQuick 2.15
import QtTest 1.15
import "qrc:/screens/device"
import "qrc:/screens/look"

// The screen "Device", with a stick whose block device and commands are the test's own.
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
        sourceComponent: DevicePage {}
    }

    ScreenCase {
        name: "Device"

        function init() {
            loader.active = false
            if (screenTest.hasDrives) {
                screenTest.pull()
            }
            screenTest.makeClock()
            LogEntries.clear()
            loader.active = true
        }

        function texts() {
            return screenTest.visibleTexts(root)
        }

        // looks, and waits for the result
        function look() {
            click("lookAtDrives")
            tryVerify(() => item("lookAtDrives").enabled, patience)
        }

        function needDrives() {
            if (!screenTest.hasDrives) {
                skip("mounts and device nodes need the rights of root, and no user namespace")
            }
        }

        function test_layout() {
            if (screenTest.hasDrives) {
                screenTest.plugIn("fat32")
                look()
            }
            screenTest.log(2, "A message that is long enough to need more than a line of the log")
            tryVerify(() => LogEntries.lines.length > 0, patience)
            verifyLayoutInAllSizes(root)
            verifyLayoutInGerman(root)
            Look.dark = true
            Look.mirrored = true
            verifyLayout(root)
        }

        function test_noDrive() {
            needDrives()
            verify(texts().includes("To look at a drive, it is mounted for a moment. "
                                    + "Do not pull it meanwhile."))
            look()
            verify(texts().includes("There is no USB drive."))
        }

        function test_drive_data() {
            return [
                { tag: "clean", type: "fat32", dirty: false, kind: "FAT32", state: "Clean" },
                { tag: "dirty", type: "fat32", dirty: true, kind: "FAT32",
                  state: "Dirty: it was pulled too early" },
                { tag: "with the volume's own word", type: "fat16", dirty: false, kind: "FAT16",
                  state: "Clean" },
                { tag: "without a mark", type: "exfat", dirty: false, kind: "EXFAT",
                  state: "Has no mark" }
            ]
        }

        function test_drive(data) {
            needDrives()
            screenTest.plugIn(data.type)
            screenTest.setDirty(data.dirty)
            look()
            verify(screenTest.find(root, "drive0") !== null, texts())
            verify(texts().includes(data.kind), texts())
            verify(texts().includes(data.state), texts())
            verify(texts().some(text => / of [\d.]+ [KMGT]?B$/.test(text)), texts())
            screenTest.pull()
            look()
            verify(texts().includes("There is no USB drive."))
        }

        function test_aKindThatIsNotSupported() {
            needDrives()
            screenTest.plugIn("ext4")
            look()
            verify(texts().includes("The application works with exFAT, NTFS and the FAT volumes "
                                    + "that it can mark."))
        }

        function test_aMountedDriveIsShownAtOnce() {
            needDrives()
            loader.active = false
            screenTest.plugIn("fat32")
            screenTest.setDirty(true)
            screenTest.mount()
            loader.active = true
            tryVerify(() => texts().includes("In use"), patience)
            verify(!texts().some(text => text.includes("mounted for a moment")))
        }

        function test_aDriveThatWasPulledWhileMountedIsToldOf() {
            needDrives()
            screenTest.plugIn("fat32")
            screenTest.mount()
            look()
            compare(screenTest.find(root, "driveWarning"), null)
            screenTest.pullWhileMounted()
            look()
            verify(texts().includes("There is no USB drive."))
            compare(item("driveWarning").text, "The USB drive on \"/media/usbdrive\" was pulled out. "
                                               + "Run \"ovo-fieldhost usb unlock\", then plug it "
                                               + "in again.")
            verifyLayoutInAllSizes(root)
            verifyLayoutInGerman(root)
        }

        function test_clockRuns() {
            tryVerify(() => item("clock").text !== "", patience)
            const first = item("clock").text
            verify(/^\d\d:\d\d:\d\d$/.test(first), first)
            tryVerify(() => item("clock").text !== first, patience)
        }

        function test_clockIsSet() {
            fill("newDate", screenTest.today())
            keyClick(Qt.Key_Return)
            item("questionConfirm")
            compare(screenTest.commands(), [])
            keyClick(Qt.Key_Return)
            tryCompare(item("clockOutcome"), "text", "The clock is set.", patience)
            compare(item("clockOutcome").kind, "good")
            compare(screenTest.commands().length, 2)
        }

        function test_dateAndTimeAreSent() {
            fill("newDate", "2026-11-21")
            fill("newTime", "13:05")
            keyClick(Qt.Key_Return)
            click("questionConfirm")
            tryCompare(item("clockOutcome"), "kind", "bad", patience)
            verify(/^The clock is not set: it shows .* UTC\./.test(item("clockOutcome").text),
                   item("clockOutcome").text)
            compare(screenTest.commands()[0], "date -u -s 2026-11-21 13:05:00")
        }

        function test_clockIsNotSetOnEscape() {
            fill("newTime", "13:05")
            tap("setClock")
            item("questionCancel")
            keyClick(Qt.Key_Escape)
            tryVerify(() => screenTest.find(root, "questionCancel") === null, patience)
            compare(screenTest.commands(), [])
        }

        function test_aClockThatRefusesIsTold() {
            screenTest.breakClock()
            fill("newDate", screenTest.today())
            click("setClock")
            click("questionConfirm")
            tryCompare(item("clockOutcome"), "kind", "bad", patience)
            compare(item("clockOutcome").text,
                    "The system clock is set, the hardware clock is not: it shows "
                    + "1970-01-02 00:00:00 UTC. The time may be wrong after the next start.")
        }

        function test_aDateBeyondTheClocksIsRefused() {
            fill("newDate", "9999-12-31")
            click("setClock")
            click("questionConfirm")
            tryCompare(item("clockOutcome"), "kind", "bad", patience)
            verify(item("clockOutcome").text.endsWith("No clock was changed."))
            compare(screenTest.commands(), [])
        }

        function test_mistakesAreTold_data() {
            return [
                { tag: "no date", field: "newDate", text: "tomorrow", says: "no such day" },
                { tag: "not in the calendar", field: "newDate", text: "2026-02-30",
                  says: "no such day" },
                { tag: "no time", field: "newTime", text: "25:00", says: "no such time" }
            ]
        }

        function test_mistakesAreTold(data) {
            fill(data.field, data.text)
            keyClick(Qt.Key_Return)
            verify(item(data.field).message.includes(data.says))
            compare(screenTest.find(root, "questionConfirm"), null)
        }

        function test_log() {
            verify(texts().includes("Nothing has been logged."))
            screenTest.log(2, "first")
            screenTest.log(1, "second")
            tryVerify(() => texts().includes("[error] Test: second"), patience)
            compare(item("logLine0").text, "[error] Test: second")
            compare(item("logLine1").text, "[warning] Test: first")
            click("clearLog")
            verify(texts().includes("Nothing has been logged."))
        }

        function test_logKeepsWhatMatters() {
            choose("threshold", "Errors")
            screenTest.log(2, "a warning")
            screenTest.log(1, "an error")
            tryVerify(() => texts().includes("[error] Test: an error"), patience)
            compare(LogEntries.lines.length, 1)
            choose("threshold", "Errors, warnings and information")
        }
    }
}
