// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Window 2.15
import QtTest 1.15
import "qrc:/screens/look"

// Exports as a user makes them, with real files.
Item {
    id: root

    width: 1000
    height: 700

    Rectangle {
        anchors.fill: parent
        color: Look.background
    }
    Loader {
        id: loader

        anchors.fill: parent
        active: false
        source: "qrc:/screens/export/ExportPage.qml"
    }

    ScreenCase {
        id: testCase

        name: "Export"

        readonly property string project: screenTest.home + "/project"
        readonly property string target: screenTest.home + "/target"
        readonly property string landing: target + "/project"

        function init() {
            screenTest.begin()
            loader.active = true
            verify(loader.item)
            waitForRendering(loader.item) // positions are given before a frame
        }

        function cleanup() {
            loader.active = false
            screenTest.end()
            Look.fontScale = 1
            Look.dark = false
            Look.mirrored = false
            compare(screenTest.takeWarnings(), [])
        }

        // walks from the home to a directory of it
        function choose(button, name) {
            openChooser(button)
            enter(name)
            tryVerify(() => item("chooserPath").text === screenTest.home + "/" + name, patience)
            tap("chooserChoose")
            tryVerify(() => screenTest.find(root, "chooserChoose") === null, patience)
        }

        function chooseBoth() {
            choose("chooseSource", "project")
            choose("chooseDestination", "target")
        }

        // up to where "data.bin" is written and "later.txt" still to come
        function startAndHold() {
            screenTest.holdCopies()
            chooseBoth()
            click("start")
            verify(screenTest.waitUntilHeld())
            tryVerify(() => item("directory").value === "project", patience)
            compare(item("stateTitle").text, "Copying")
        }

        function verifyResult(text) {
            tryVerify(() => screenTest.find(root, "result") !== null, patience)
            compare(item("result").text, text)
        }

        // whether something like it is said to the user
        function says(pattern) {
            return screenTest.visibleTexts(root).some(text => pattern.test(text))
        }

        function verifySays(pattern) {
            verify(says(pattern), pattern + " is not in:\n"
                   + screenTest.visibleTexts(root).join("\n"))
        }

        function test_nothingIsChosenAtFirst() {
            verify(!item("start").enabled)
            choose("chooseSource", "project")
            compare(item("sourcePath").text, project)
            tryVerify(() => item("sourceSize").text === "97.7 KiB", patience)
            verify(!item("start").enabled)
            choose("chooseDestination", "target")
            compare(item("destinationPath").text, target)
            tryVerify(() => / free$/.test(item("freeSpace").text), patience)
            verify(item("start").enabled)
        }

        function test_wholeExport() {
            chooseBoth()
            tap("start")
            verifyResult("The export is done")
            verifySays(/^Verified: every copy equals its source$/)
            verifySays(/^Done: 2 files, 97.7 KiB in /)
            verify(screenTest.areSame(project, landing))
            // it is on no drive that this program has mounted
            compare(screenTest.find(root, "pull"), null)
            tap("again")
            compare(item("sourcePath").text, project)
        }

        function test_withoutVerification() {
            chooseBoth()
            tap("verify")
            tap("start")
            verifyResult("The export is done")
            verify(!says(/^Verified/))
            verify(screenTest.areSame(project, landing))
        }

        function test_byKeyboard() {
            const walk = function(button, name) {
                item(button).forceActiveFocus(Qt.TabFocusReason)
                keyClick(Qt.Key_Return)
                tryVerify(() => screenTest.find(root, "entry:" + name) !== null, patience)
                tryVerify(() => item("chooserList").activeFocus, patience)
                for (let i = 0; i < 9 && !item("entry:" + name).highlighted; ++i) {
                    keyClick(Qt.Key_Down)
                }
                keyClick(Qt.Key_Return)
                tryVerify(() => item("chooserPath").text === screenTest.home + "/" + name, patience)
                keyClick(Qt.Key_Backspace)
                tryVerify(() => item("chooserPath").text === screenTest.home, patience)
                tryVerify(() => screenTest.find(root, "entry:" + name) !== null, patience)
                for (let i = 0; i < 9 && !item("entry:" + name).highlighted; ++i) {
                    keyClick(Qt.Key_Down)
                }
                keyClick(Qt.Key_Enter)
                tryVerify(() => item("chooserPath").text === screenTest.home + "/" + name, patience)
                for (let i = 0; i < 9 && !item("chooserChoose").activeFocus; ++i) {
                    keyClick(Qt.Key_Tab)
                }
                keyClick(Qt.Key_Return)
                tryVerify(() => screenTest.find(root, "chooserChoose") === null, patience)
            }
            walk("chooseSource", "project")
            walk("chooseDestination", "target")
            for (let i = 0; i < 9 && !item("start").activeFocus; ++i) {
                keyClick(Qt.Key_Tab)
            }
            keyClick(Qt.Key_Return)
            verifyResult("The export is done")
            verify(screenTest.areSame(project, landing))
        }

        function test_aChoiceIsLeftByEscape() {
            choose("chooseSource", "project")
            openChooser("chooseSource")
            click("chooserUp")
            keyClick(Qt.Key_Escape)
            tryVerify(() => screenTest.find(root, "chooserChoose") === null, patience)
            compare(item("sourcePath").text, project)
        }

        function test_namesThatUrlsWouldChange() {
            const name = "50 % #1? ü"
            screenTest.makeFile(screenTest.home + "/" + name + "/inner/file", 2048)
            openChooser("chooseSource")
            enter(name)
            enter("inner")
            tryVerify(() => item("chooserPath").text === screenTest.home + "/" + name + "/inner",
                      patience)
            click("chooserChoose")
            compare(item("sourcePath").text, screenTest.home + "/" + name + "/inner")
            tryVerify(() => item("sourceSize").text === "2.0 KiB", patience)
            choose("chooseDestination", "target")
            click("start")
            verifyResult("The export is done")
            verify(screenTest.exists(target + "/inner/file"))
        }

        function test_pauseAndResume() {
            startAndHold()
            click("pause")
            tryVerify(() => item("stateTitle").text === "Paused", patience)
            screenTest.letGo()
            // the file on its way is whole, and no other is begun
            tryVerify(() => item("bytes").value === "97.7 KiB of 97.7 KiB", patience)
            verify(!screenTest.exists(landing + "/later.txt"))
            compare(item("rate").value, "–")
            compare(item("pause").text, "Resume")
            tap("pause")
            verifyResult("The export is done")
            verify(screenTest.areSame(project, landing))
        }

        function test_abortIsAskedFor() {
            startAndHold()
            click("abort")
            verifyQuestion(landing + " is removed, with everything that was copied.")
            keyClick(Qt.Key_Escape)
            tryVerify(() => screenTest.find(root, "questionConfirm") === null, patience)
            compare(item("stateTitle").text, "Copying")

            click("abort")
            keyClick(Qt.Key_Enter) // the answer that keeps everything
            tryVerify(() => screenTest.find(root, "questionConfirm") === null, patience)
            compare(item("stateTitle").text, "Copying")

            tap("abort")
            tap("questionConfirm")
            tryVerify(() => item("stateTitle").text === "Aborting", patience)
            screenTest.letGo()
            verifyResult("The export was aborted")
            verifySays(/^Aborted. Removed: ".*\/target\/project"$/)
            verify(!screenTest.exists(landing))
            verify(screenTest.exists(target))
        }

        function verifyQuestion(text) {
            tryVerify(() => screenTest.find(root, "questionConfirm") !== null, patience)
            let top = root
            while (top.parent) {
                top = top.parent
            }
            const texts = screenTest.visibleTexts(top)
            verify(texts.indexOf(text) >= 0, text + " is not in:\n" + texts.join("\n"))
        }

        function test_closingTheWindowAsks() {
            startAndHold()
            root.Window.window.close()
            verifyQuestion(landing + " is removed, with everything that was copied.")
            tap("questionCancel")
            tryVerify(() => screenTest.find(root, "questionConfirm") === null, patience)
            verify(root.Window.window.visible)
            compare(item("stateTitle").text, "Copying")
            screenTest.letGo()
            verifyResult("The export is done")
        }

        function test_aQuestionThatIsLateGoes() {
            startAndHold()
            click("abort")
            tryVerify(() => screenTest.find(root, "questionConfirm") !== null, patience)
            screenTest.letGo()
            verifyResult("The export is done")
            tryVerify(() => screenTest.find(root, "questionConfirm") === null, patience)
            verify(screenTest.areSame(project, landing))
        }

        function test_replacingIsAskedFor_data() {
            return [
                { tag: "replaced", button: "questionConfirm", result: "The export is done" },
                { tag: "kept", button: "questionCancel", result: "The export was aborted" },
            ]
        }

        function test_replacingIsAskedFor(data) {
            screenTest.makeFile(landing + "/data.bin", 10)
            screenTest.makeFile(landing + "/other.bin", 10)
            chooseBoth()
            click("start")
            verifyQuestion(landing + " holds files of the same name. They are replaced once all "
                           + "of the copy is whole.")
            tap(data.button)
            verifyResult(data.result)
            compare(screenTest.exists(landing + "/later.txt"), data.tag === "replaced")
            verify(screenTest.exists(landing + "/other.bin"))
        }

        function test_anAbortLeavesWhatWasThere() {
            screenTest.makeFile(landing + "/other.bin", 10)
            startAndHold()
            click("abort")
            verifyQuestion("The unfinished copy is removed. What was in " + landing
                           + " before stays as it was.")
            click("questionConfirm")
            screenTest.letGo()
            verifyResult("The export was aborted")
            verify(screenTest.exists(landing + "/other.bin"))
            verify(!screenTest.exists(landing + "/data.bin"))
        }

        function test_fullDisk_data() {
            return [{ tag: "before the copy" }, { tag: "in the middle" }]
        }

        function test_fullDisk(data) {
            if (!screenTest.mayMount) {
                skip("mounting a disk needs the rights of root")
            }
            screenTest.mountDisk()
            if (data.tag === "before the copy") {
                screenTest.fillDisk()
                chooseBoth()
                click("start")
                verifyResult("Nothing was copied")
                verifySays(/^Not enough free space in /)
                return
            }
            startAndHold()
            screenTest.makeFile(project + "/later.txt", 10000) // it grows while it is copied
            screenTest.fillDisk()
            screenTest.letGo()
            verifyResult("The export has failed")
            verifySays(/later\.txt" cannot be written: No space left on device\.$/)
            verifySays(/^1 of 2 files are whole in ".*\/target", the others are missing; /)
            verify(!screenTest.exists(landing + "/later.txt"))
        }

        function test_aDriveThatGoes() {
            if (!screenTest.mayMount) {
                skip("mounting a disk needs the rights of root")
            }
            screenTest.mountDisk()
            startAndHold()
            screenTest.pullDisk()
            screenTest.letGo()
            verifyResult("The export has failed")
            verifySays(/^Failed: the drive was taken away, or the directory moved: /)
            verifySays(/^Nothing was written anywhere else\./)
            verify(!screenTest.exists(landing))
        }

        function test_aCopyThatDiffers() {
            startAndHold()
            screenTest.spoil(landing + "/data.bin")
            screenTest.letGo()
            verifyResult("The export has failed")
            verifySays(/^Failed: The copy of ".*data\.bin" is not good: its copy differs from it\.$/)
            verify(!screenTest.exists(landing))
        }

        function test_aSourceThatIsGone() {
            screenTest.makeDirectory(screenTest.home + "/project/empty")
            choose("chooseSource", "project")
            choose("chooseDestination", "project")
            click("start")
            verifyResult("Nothing was copied")
            verifySays(/lies inside the source/)
        }

        function test_theUsbDrive() {
            if (!screenTest.mayMount) {
                skip("mounting a drive needs the rights of root")
            }
            screenTest.plugDrive()
            choose("chooseSource", "project")
            tap("useDrive")
            compare(item("destinationPath").text, "USB drive (/media/usbdrive)")
            compare(screenTest.find(root, "freeSpace"), null)
            tap("start")
            verifyResult("The export is done")
            compare(item("pull").text, "You can pull the drive now.")
            verifySays(/^The USB drive is marked as in use: /)
            verifySays(/^The USB drive is unmounted and marked clean\.$/)
            verify(screenTest.isDriveClean())
            verify(screenTest.areSame(project, "/media/usbdrive/project"))
        }

        function test_layout_data() {
            return [
                { tag: "choosing", reach: () => chooseBoth() },
                { tag: "nothing chosen", reach: () => {} },
                { tag: "copying", reach: () => startAndHold() },
                { tag: "paused", reach: () => { startAndHold()
                                                click("pause")
                                                tryVerify(() => item("stateTitle").text
                                                                === "Paused", patience) } },
                { tag: "done", reach: () => { chooseBoth()
                                              click("start")
                                              verifyResult("The export is done") } },
            ]
        }

        function test_layout(data) {
            data.reach()
            verifyLayoutInAllSizes(root)
            verifyLayoutInGerman(root)
            Look.mirrored = true
            verifyLayout(root)
        }

        function test_layoutOfTheChooser() {
            for (let i = 0; i < 20; ++i) {
                screenTest.makeDirectory(screenTest.home + "/somewhat long name of a directory, for a change, number " + i)
            }
            openChooser("chooseSource")
            item("entry:project")
            for (const scale of [1, 1.5]) {
                Look.fontScale = scale
                grabImage(root) // draws a frame: positions are given before it
                wait(50)
                compare(screenTest.layoutFaults(item("chooserPath").parent), [], "fonts " + scale)
            }
            keyClick(Qt.Key_Escape)
        }
    }
}
