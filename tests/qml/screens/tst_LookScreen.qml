// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import "qrc:/screens/look"

// What the screens are made of.
Item {
    id: root

    width: 800
    height: 480

    Rectangle {
        anchors.fill: parent
        color: Look.background
    }
    Page {
        id: page

        anchors.fill: parent
        title: "All components"

        Card {
            Label { text: "A text that is long enough to need more than one line in a window that is as narrow as this one is" }
            Fact { caption: "Size"; value: "1.50 GiB" }
            Bar { objectName: "bar"; value: 0.4 }
        }
        Field {
            id: field

            objectName: "field"
            caption: "Length"
            unit: "m"
            mandatory: true
        }
        Choice {
            id: choice

            objectName: "choice"
            caption: "Material"
            model: ["Concrete", "Steel", "Vitrified clay"]
        }
        Toggle {
            id: toggle

            objectName: "toggle"
            text: "Verify after copying"
        }
        ActionButton {
            id: button

            objectName: "button"
            kind: "primary"
            icon.name: "usb"
            text: "Export"
        }
        Notice { kind: "warning"; text: "The drive is nearly full." }
    }
    Question {
        id: question

        title: "Abort the export?"
        text: "What has been copied is removed."
        confirmText: "Abort"
        cancelText: "Go on"
        danger: true
    }

    SignalSpy { id: clicked; target: button; signalName: "clicked" }
    SignalSpy { id: chosen; target: choice; signalName: "activated" }
    SignalSpy { id: accepted; target: question; signalName: "accepted" }
    SignalSpy { id: rejected; target: question; signalName: "rejected" }

    ScreenCase {
        name: "Look"

        function init() {
            clicked.clear()
            chosen.clear()
            accepted.clear()
            rejected.clear()
        }

        function luminance(colour) {
            const linear = [colour.r, colour.g, colour.b].map(
                part => part <= 0.03928 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4))
            return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]
        }

        function contrast(first, second) {
            const values = [luminance(first), luminance(second)].sort((a, b) => b - a)
            return (values[0] + 0.05) / (values[1] + 0.05)
        }

        function test_contrast_data() {
            return [{ tag: "light", dark: false }, { tag: "dark", dark: true }]
        }

        function test_contrast(data) {
            Look.dark = data.dark
            for (const ground of ["background", "surface", "raised"]) {
                for (const ink of ["text", "muted", "accent", "good", "warning", "bad"]) {
                    verify(contrast(Look[ink], Look[ground]) >= 4.5,
                           ink + " on " + ground + ": " + contrast(Look[ink], Look[ground]))
                }
                verify(contrast(Look.outline, Look[ground]) >= 3,
                       "outline on " + ground + ": " + contrast(Look.outline, Look[ground]))
            }
            verify(contrast(Look.accentText, Look.accent) >= 4.5)
            verify(contrast(Look.badText, Look.bad) >= 4.5)
        }

        function test_nothingIsCutOff() {
            verifyLayoutInAllSizes(root)
            Look.mirrored = true
            verifyLayout(root)
        }

        function test_aTextThatIsCutOffIsFound() {
            button.width = 60
            button.height = 20
            const faults = screenTest.layoutFaults(root).join("; ")
            verify(faults.includes("button \"Export\" is too small to touch"), faults)
            verify(faults.includes("\"Export\" is wider than its place"), faults)
            button.width = Qt.binding(() => button.implicitWidth)
            button.height = Qt.binding(() => button.implicitHeight)
        }

        function test_buttonIsPressed_data() {
            return [
                { tag: "click", press: () => click("button") },
                { tag: "touch", press: () => tap("button") },
                { tag: "Enter", press: () => keyClick(Qt.Key_Enter) },
                { tag: "Return", press: () => keyClick(Qt.Key_Return) },
                { tag: "space", press: () => keyClick(Qt.Key_Space) },
            ]
        }

        function test_buttonIsPressed(data) {
            button.forceActiveFocus(Qt.TabFocusReason)
            data.press()
            compare(clicked.count, 1)
        }

        function test_toggleIsTurned() {
            tap("toggle")
            verify(toggle.checked)
            toggle.forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Return)
            verify(!toggle.checked)
        }

        function test_fieldTakesWhatIsTyped() {
            mouseClick(field.input)
            type("12.5")
            compare(field.text, "12.5")
            keyClick(Qt.Key_Tab)
            verify(choice.box.activeFocus)
        }

        function test_choiceByKeyboard() {
            choice.box.forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Return)
            tryVerify(() => choice.box.popup.opened, patience)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Return)
            tryVerify(() => !choice.box.popup.visible, patience)
            compare(choice.currentText, "Vitrified clay")
            compare(chosen.count, 1)
            compare(chosen.signalArguments[0][0], 2)
        }

        function test_choiceIsLeftByEscape() {
            choice.currentIndex = 0
            choice.box.forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Space)
            tryVerify(() => choice.box.popup.opened, patience)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Escape)
            tryVerify(() => !choice.box.popup.visible, patience)
            compare(choice.currentIndex, 0)
            compare(chosen.count, 0)
        }

        function test_questionIsAnswered_data() {
            return [
                { tag: "Escape", answer: () => keyClick(Qt.Key_Escape), yes: 0 },
                { tag: "Enter, where something goes", answer: () => keyClick(Qt.Key_Enter), yes: 0 },
                { tag: "Tab and Enter", answer: () => { keyClick(Qt.Key_Tab)
                                                        keyClick(Qt.Key_Enter) }, yes: 1 },
                { tag: "click", answer: () => click("questionConfirm"), yes: 1 },
                { tag: "touch", answer: () => tap("questionCancel"), yes: 0 },
            ]
        }

        function test_questionIsAnswered(data) {
            question.open()
            tryVerify(() => question.opened, patience)
            data.answer()
            tryVerify(() => !question.visible, patience)
            compare(accepted.count, data.yes)
            compare(rejected.count, 1 - data.yes)
        }

        function test_focusBringsIntoView() {
            root.height = 200
            button.forceActiveFocus(Qt.TabFocusReason)
            const top = button.mapToItem(root, 0, 0).y
            verify(top >= 0 && top + button.height <= root.height, top)
            root.height = 480
        }
    }
}
