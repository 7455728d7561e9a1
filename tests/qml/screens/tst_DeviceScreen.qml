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
            screenTest.setClockFails(false)
            LogEntries.clear()
            loader.active = true
        }

        function texts() {
            return screenTest.visibleTexts(root)
        }

        // looks, and waits for the result
        function look() {
            click("lookAtDrives")
            tryVerify(() => item("lookAtDrives").enabled)
        }

        function needDrives() {
            if (!screenTest.hasDrives) {
                skip("a mount namespace of its own needs the rights of root")
            }
        }

        function test_layout() {
            if (screenTest.hasDrives) {
                screenTest.plugIn("fat32")
                look()
            }
            screenTest.log(2, "A message that is long enough to need more than a line of the log")
            tryVerify(() => LogEntries.lines.length > 0)
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
            tryVerify(() => texts().includes("In use"))
            verify(!texts().some(text => text.includes("mounted for a moment")))
        }

        function test_clockRuns() {
            tryVerify(() => item("clock").text !== "")
            const first = item("clock").text
            verify(/^\d\d:\d\d:\d\d$/.test(first), first)
            tryVerify(() => item("clock").text !== first)
        }

        function test_clockIsSet() {
            const before = screenTest.commands().length
            fill("newDate", "2026-11-21")
            fill("newTime", "13:05")
            keyClick(Qt.Key_Return)
            item("questionConfirm")
            compare(screenTest.commands().length, before)
            keyClick(Qt.Key_Return)
            tryCompare(item("clockOutcome"), "text", "The clock is set.")
            compare(item("clockOutcome").kind, "good")
            const run = screenTest.commands().slice(before)
            verify(run[0].startsWith("date") && run[0].includes("2026"), run[0])
            verify(run.some(command => command.startsWith("date") && command.includes("13:05")),
                   run)
            verify(run.some(command => command.startsWith("hwclock")), run)
        }

        function test_clockIsNotSetOnEscape() {
            const before = screenTest.commands().length
            fill("newTime", "13:05")
            tap("setClock")
            item("questionCancel")
            keyClick(Qt.Key_Escape)
            tryVerify(() => screenTest.find(root, "questionCancel") === null)
            compare(screenTest.commands().length, before)
        }

        function test_aClockThatRefusesIsTold() {
            screenTest.setClockFails(true)
            fill("newTime", "13:05")
            click("setClock")
            click("questionConfirm")
            tryCompare(item("clockOutcome"), "kind", "bad")
            verify(item("clockOutcome").text.startsWith("The clock was not set."))
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
            tryVerify(() => texts().includes("[error] Test: second"))
            compare(item("logLine0").text, "[error] Test: second")
            compare(item("logLine1").text, "[warning] Test: first")
            click("clearLog")
            verify(texts().includes("Nothing has been logged."))
        }

        function test_logKeepsWhatMatters() {
            choose("threshold", "Errors")
            screenTest.log(2, "a warning")
            screenTest.log(1, "an error")
            tryVerify(() => texts().includes("[error] Test: an error"))
            compare(LogEntries.lines.length, 1)
            choose("threshold", "Errors, warnings and information")
        }
    }
}
