// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import OvoSharedBase 1.0
import Ovo.Input 1.0

Item {
    width: 400
    height: 200

    Column {
        TextInput {
            id: number

            width: 200
            validator: FieldValidator { rules: numberRules }

            TextValidator {
                id: numberRules

                Component.onCompleted:
                    addValidator(TextValidator.ValidatorInt, { bottom: 0, top: 10 })
            }
        }

        Text {
            id: hint

            visible: numberRules.hasHint
            text: numberRules.hint
            color: number.acceptableInput ? "green" : "red"
        }

        TextInput {
            id: date

            width: 200
            validator: FieldValidator { id: dateValidator; rules: dateRules }

            TextValidator {
                id: dateRules

                Component.onCompleted:
                    addValidator(TextValidator.ValidatorDateTimeMask, { format: "dd.MM.yyyy" })
            }
        }

        TextInput {
            id: decimal

            width: 200
        }
    }

    SignalSpy {
        id: accepted

        target: number
        signalName: "accepted"
    }

    TestCase {
        name: "TextField"
        when: windowShown

        function init() {
            Host.useLocale("C")
            dateValidator.blocking = false // or else the field could not be emptied
            for (const field of [number, date, decimal]) {
                field.clear()
            }
            dateValidator.blocking = true
            number.forceActiveFocus()
            verify(number.activeFocus)
            accepted.clear()
        }

        function type(text) {
            for (const letter of text) {
                keyClick(letter)
            }
        }

        function test_hintIsShown() {
            compare(hint.visible, true)
            compare(hint.text, "Minimum value larger or equal 0\nMaximum value smaller or equal 10")
        }

        function test_keysThatCannotBecomeRightAreRefused() {
            type("1")
            compare(number.text, "1")
            type("5a-")
            compare(number.text, "1")
            type("0")
            compare(number.text, "10")
            type("0")
            compare(number.text, "10")
            type("%")
            compare(number.text, "10%")
        }

        function test_onlyAnAcceptableTextIsAccepted() {
            compare(number.acceptableInput, false)
            keyClick(Qt.Key_Return)
            compare(accepted.count, 0)
            type("7")
            compare(number.acceptableInput, true)
            compare(hint.color, "#008000")
            keyClick(Qt.Key_Return)
            compare(accepted.count, 1)
            keyClick(Qt.Key_Backspace)
            compare(number.text, "")
            compare(number.acceptableInput, false)
            compare(hint.color, "#ff0000")
        }

        function test_pasteIsJudgedAsAWhole() {
            decimal.text = "42"
            decimal.selectAll()
            decimal.copy()
            number.paste()
            compare(number.text, "")
            decimal.text = "9"
            decimal.selectAll()
            decimal.copy()
            number.paste()
            compare(number.text, "9")
        }

        function test_rulesAddedLaterCount() {
            type("7")
            compare(number.acceptableInput, true)
            const rules = Qt.createQmlObject("import OvoSharedBase 1.0; TextValidator {}", number)
            const before = number.validator.rules
            number.validator.rules = rules
            compare(number.acceptableInput, true)
            rules.addValidator(TextValidator.ValidatorInt, { bottom: 8 })
            compare(number.acceptableInput, false)
            number.validator.rules = before
            compare(number.acceptableInput, true)
            rules.destroy()
        }

        function test_acceptableDatesCannotBeCorrectedWhileBlocking() {
            date.forceActiveFocus()
            date.text = "29.02.2024"
            compare(date.acceptableInput, true)
            keyClick(Qt.Key_Backspace)
            compare(date.text, "29.02.2024")
            dateValidator.blocking = false
            keyClick(Qt.Key_Backspace)
            compare(date.text, "29.02.202")
        }

        function test_unfinishedDatesAreTypedAndNotAccepted() {
            dateValidator.blocking = false
            date.forceActiveFocus()
            type("29.02.202")
            compare(date.text, "29.02.202")
            compare(date.acceptableInput, false)
            type("4")
            compare(date.acceptableInput, true)
        }

        function test_separatorsFollowTheLocale_data() {
            return [
                { tag: "de_DE", typed: "1.5", text: "1,5" },
                { tag: "en_US", typed: "1,5", text: "1.5" }
            ]
        }

        function test_separatorsFollowTheLocale(row) {
            Host.useLocale(row.tag)
            decimal.validator = Host.makeDecimalValidator(decimal)
            decimal.forceActiveFocus()
            type(row.typed)
            compare(decimal.text, row.text)
            compare(decimal.acceptableInput, true)
            type("55")
            compare(decimal.text, row.text + "5") // two decimals
            decimal.validator = null
        }
    }
}
