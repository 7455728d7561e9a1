// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import "qrc:/screens/look"

// Deletions as a user makes them, of real files.
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
        source: "qrc:/screens/export/DeletePage.qml"
    }

    ScreenCase {
        name: "Delete"

        readonly property string project: screenTest.home + "/project"

        function init() {
            screenTest.begin()
            screenTest.makeFile(screenTest.home + "/single.bin", 2048)
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

        function chooseProject() {
            openChooser("choose")
            enter("project")
            tryVerify(() => item("chooserPath").text === project, patience)
            tap("chooserChoose")
            tryVerify(() => screenTest.find(root, "chooserChoose") === null, patience)
            tryVerify(() => item("entrySize0").text === "97.7 KiB", patience)
        }

        function texts() {
            let top = root
            while (top.parent) {
                top = top.parent
            }
            return screenTest.visibleTexts(top)
        }

        function verifySays(pattern) {
            verify(texts().some(text => pattern.test(text)),
                   pattern + " is not in:\n" + texts().join("\n"))
        }

        function verifyResult(text) {
            tryVerify(() => screenTest.find(root, "result") !== null, patience)
            compare(item("result").text, text)
        }

        function test_sizeAndQuestionComeFirst() {
            verify(!item("delete").enabled)
            chooseProject()
            verify(item("delete").enabled)
            tap("delete")
            tryVerify(() => screenTest.find(root, "questionConfirm") !== null, patience)
            verifySays(/\/project\n\n97.7 KiB in all. This cannot be undone.$/)
            verify(screenTest.exists(project))
            tap("questionConfirm")
            verifyResult("Everything is deleted")
            verifySays(/^Deleted: ".*\/project"$/)
            verify(!screenTest.exists(project))
            verify(screenTest.exists(screenTest.home + "/target"))
            verify(!item("delete").enabled)
        }

        function test_theQuestionIsRefused_data() {
            return [
                { tag: "Escape", answer: () => keyClick(Qt.Key_Escape) },
                { tag: "Enter", answer: () => keyClick(Qt.Key_Enter) },
                { tag: "touch", answer: () => tap("questionCancel") },
            ]
        }

        function test_theQuestionIsRefused(data) {
            chooseProject()
            click("delete")
            tryVerify(() => screenTest.find(root, "questionConfirm") !== null, patience)
            data.answer()
            tryVerify(() => screenTest.find(root, "questionConfirm") === null, patience)
            verify(item("delete").enabled)
            verify(screenTest.exists(project + "/data.bin"))
        }

        function test_severalEntries() {
            chooseProject()
            openChooser("choose")
            click("chooserUp")
            tryVerify(() => item("chooserPath").text === screenTest.home, patience)
            enter("single.bin")
            tryVerify(() => item("totalSize").value === "99.7 KiB", patience)
            openChooser("choose")
            tryVerify(() => screenTest.find(root, "entry:target") !== null, patience)
            enter("target")
            tryVerify(() => item("chooserPath").text === screenTest.home + "/target", patience)
            click("chooserChoose")
            tryVerify(() => screenTest.find(root, "remove2") !== null, patience)
            tryVerify(() => item("delete").enabled, patience) // all sizes are there
            grabImage(root) // draws a frame: positions are given before it
            tap("remove0")
            tryVerify(() => screenTest.find(root, "remove2") === null, patience)
            click("delete")
            tap("questionConfirm")
            verifyResult("Everything is deleted")
            verify(screenTest.exists(project))
            verify(!screenTest.exists(screenTest.home + "/single.bin"))
            verify(!screenTest.exists(screenTest.home + "/target"))
        }

        function test_byKeyboard() {
            item("choose").forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Return)
            tryVerify(() => screenTest.find(root, "entry:project") !== null, patience)
            tryVerify(() => item("chooserList").activeFocus, patience)
            for (let i = 0; i < 9 && !item("entry:single.bin").highlighted; ++i) {
                keyClick(Qt.Key_Down)
            }
            keyClick(Qt.Key_Return)
            tryVerify(() => screenTest.find(root, "chooserChoose") === null, patience)
            for (let i = 0; i < 9 && !item("delete").activeFocus; ++i) {
                keyClick(Qt.Key_Tab)
            }
            keyClick(Qt.Key_Return)
            tryVerify(() => screenTest.find(root, "questionConfirm") !== null, patience)
            keyClick(Qt.Key_Tab)
            keyClick(Qt.Key_Return)
            verifyResult("Everything is deleted")
            verify(!screenTest.exists(screenTest.home + "/single.bin"))
        }

        function test_whatIsGoneMeanwhileIsSaid() {
            openChooser("choose")
            enter("single.bin")
            tryVerify(() => item("entrySize0").text === "2.0 KiB", patience)
            screenTest.remove(screenTest.home + "/single.bin")
            click("delete")
            click("questionConfirm")
            verifyResult("Not everything is deleted")
            verifySays(/^Failed: ".*single.bin" cannot be deleted: No such file or directory\.$/)
        }

        function test_anAbortKeepsWhatComesBehind() {
            if (!screenTest.mayMount) {
                skip("mounting a volume needs the rights of root")
            }
            screenTest.mountVolume()
            screenTest.makeFile(screenTest.home + "/target/tree/file", 2048)
            openChooser("choose")
            enter("target")
            enter("tree")
            tryVerify(() => item("chooserPath").text === screenTest.home + "/target/tree", patience)
            click("chooserChoose")
            tryVerify(() => item("entrySize0").text === "2.0 KiB", patience)
            openChooser("choose")
            click("chooserHome")
            enter("single.bin")
            tryVerify(() => screenTest.find(root, "entrySize1") !== null, patience)
            screenTest.freezeVolume()
            click("delete")
            tap("questionConfirm")
            tryVerify(() => !item("bar").indeterminate, patience) // it is at work, and held
            tap("abort")
            compare(item("stateTitle").text, "Aborting")
            verify(screenTest.exists(screenTest.home + "/target/tree/file"))
            screenTest.thawVolume()
            verifyResult("The deletion was aborted")
            verify(screenTest.exists(screenTest.home + "/single.bin"))
            verifySays(/^Aborted\. Not deleted: /)
        }

        function test_layout() {
            verifyLayoutInAllSizes(root)
            chooseProject()
            verifyLayoutInAllSizes(root)
            verifyLayoutInGerman(root)
            Look.mirrored = true
            verifyLayout(root)
        }
    }
}
