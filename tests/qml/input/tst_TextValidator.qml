// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import OvoSharedBase 1.0
import Ovo.Input 1.0

TestCase {
    id: test

    name: "TextValidator"

    Component {
        id: component

        TextValidator {}
    }

    SignalSpy {
        id: hintChanged

        signalName: "hintChanged"
    }

    SignalSpy {
        id: hasHintChanged

        signalName: "hasHintChanged"
    }

    function make() {
        return createTemporaryObject(component, test)
    }

    function test_typesAreKnownByTheirKeys_data() {
        return [
            { tag: "ValidatorDouble", value: 0 },
            { tag: "ValidatorInt", value: 1 },
            { tag: "ValidatorRegExp", value: 2 },
            { tag: "ValidatorNumericalMask", value: 3 },
            { tag: "ValidatorDateTimeMask", value: 4 },
            { tag: "ValidatorLength", value: 5 },
            { tag: "ValidatorNotEmpty", value: 6 }
        ]
    }

    function test_typesAreKnownByTheirKeys(row) {
        compare(TextValidator[row.tag], row.value)
    }

    function test_withoutRulesEveryTextPasses() {
        const rules = make()
        compare(rules.hint, "")
        compare(rules.hasHint, false)
        verify(Host.passes(rules, "", true))
        verify(Host.passes(rules, "anything", true))
    }

    function test_ruleIsAddedByKeyWithOptions() {
        const rules = make()
        rules.addValidator(TextValidator.ValidatorInt, { bottom: 1, top: 9 })
        compare(rules.hint, "Minimum value larger or equal 1\nMaximum value smaller or equal 9")
        compare(rules.hasHint, true)
        verify(Host.passes(rules, "5", true))
        verify(Host.passes(rules, "", false))
        verify(!Host.passes(rules, "", true))
        verify(!Host.passes(rules, "10", false))
    }

    function test_everyTypeTakesItsOptions_data() {
        return [
            {
                tag: "double", type: TextValidator.ValidatorDouble, options: { bottom: 0, step: 0.5 },
                good: "1.5", bad: "1.6"
            }, {
                tag: "int", type: TextValidator.ValidatorInt, options: { bottom: 0, step: 5 },
                good: "10", bad: "11"
            }, {
                tag: "pattern", type: TextValidator.ValidatorRegExp, options: { pattern: "[a-c]+" },
                good: "abc", bad: "abd"
            }, {
                tag: "mask", type: TextValidator.ValidatorNumericalMask, options: { pattern: "00.0" },
                good: "12.5", bad: "12,5"
            }, {
                tag: "date", type: TextValidator.ValidatorDateTimeMask, options: { format: "hh:mm" },
                good: "10:30", bad: "25:30"
            }, {
                tag: "length", type: TextValidator.ValidatorLength, options: { bottom: 2, top: 3 },
                good: "ab", bad: "a"
            }, {
                tag: "not empty", type: TextValidator.ValidatorNotEmpty, options: {},
                good: " ", bad: ""
            }
        ]
    }

    function test_everyTypeTakesItsOptions(row) {
        const rules = make()
        rules.addValidator(row.type, row.options)
        verify(Host.passes(rules, row.good, true))
        verify(!Host.passes(rules, row.bad, true))
        verify(rules.hint.length > 0)
    }

    function test_optionsMayBeLeftOut() {
        const rules = make()
        rules.addValidator(TextValidator.ValidatorNotEmpty)
        compare(rules.hint, "Expression can not be empty")
    }

    function test_textsBecomeNumbers() {
        const rules = make()
        rules.addValidator(TextValidator.ValidatorInt, { bottom: "5", top: 7.0 })
        compare(rules.hint, "Minimum value larger or equal 5\nMaximum value smaller or equal 7")
    }

    function test_unknownOptionsAreHarmless() {
        const rules = make()
        rules.addValidator(TextValidator.ValidatorInt, { botom: 5, format: "x", objectName: "y" })
        compare(rules.hint, "")
        verify(Host.passes(rules, "4", true))
    }

    function test_unknownTypesAreHarmless_data() {
        return [
            { tag: "7", type: 7 }, { tag: "-1", type: -1 }, { tag: "highest", type: 2147483647 }
        ]
    }

    function test_unknownTypesAreHarmless(row) {
        const rules = make()
        rules.addValidator(row.type, { bottom: 1 })
        compare(rules.hasHint, true)
        compare(rules.hint, "")
        verify(Host.passes(rules, "", true))
    }

    function test_everyRuleIsAnnounced() {
        const rules = make()
        hintChanged.target = rules
        hasHintChanged.target = rules
        hintChanged.clear()
        hasHintChanged.clear()
        for (let count = 1; count <= 3; ++count) {
            rules.addValidator(TextValidator.ValidatorNotEmpty)
            compare(hintChanged.count, count)
            compare(hasHintChanged.count, count)
        }
    }

    function test_propertiesCanOnlyBeRead() {
        const rules = make()
        for (const name of ["hint", "hasHint"]) {
            let refused = false
            try {
                rules[name] = "x"
            } catch (error) {
                refused = error instanceof TypeError
            }
            verify(refused, name)
        }
    }

    function test_whatIsNotForScreensIsNotThere() {
        const rules = make()
        for (const name of ["validate", "validatorTypes", "createNewValidator",
                            "setOptionsForValidator", "updateHint"]) {
            compare(rules[name], undefined)
        }
    }
}
