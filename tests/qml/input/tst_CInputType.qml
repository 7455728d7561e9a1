// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import OvoSharedBase 1.0
import Ovo.Input 1.0

Item {
    Repeater {
        id: list

        model: Host.material.itemList

        Text {
            text: modelData.value + ": " + modelData.text
        }
    }

    SignalSpy {
        id: itemListChanged

        target: Host.material
        signalName: "itemListChanged"
    }

    TestCase {
        name: "CInputType"

        function init() {
            Host.openTheFirstProject()
            itemListChanged.clear()
        }

        function test_propertiesAreRead() {
            const type = Host.material
            compare(type.caption, "Material")
            compare(type.boundColumn, "SEC_Material")
            compare(type.unit, "")
            compare(type.mandatory, true)
            compare(type.hasList, true)
            compare(type.editableList, false)
            compare(type.maximumTextLength, 2)
            compare(type.minimumValue, 5)
            compare(type.maximumValue, undefined)
            compare(type.displayFormat, "")
        }

        function test_kindsAreNumbersWithKeys() {
            compare(Host.material.inputType, CInputType.InputTypeText)
            compare(Host.material.inputType, 1)
            compare(Host.material.controlType, CInputType.ComboBox)
            compare(Host.material.controlType, 3)
            compare(CInputType.NumericUpDn, 4)
            compare(CInputType.MultiLineTextBox, 19)
        }

        function test_listIsShown() {
            compare(list.count, 2)
            compare(list.itemAt(0).text, "CO: Concrete")
            compare(list.itemAt(1).text, "VI: Vitrified clay")
        }

        function test_entriesAreFound() {
            compare(Host.material.textFromListIndex(1), "Vitrified clay")
            compare(Host.material.valueFromListIndex(1), "VI")
            compare(Host.material.listIndexFromValue("VI"), 1)
            compare(Host.material.listIndexFromValue("XX"), -1)
            compare(Host.material.textFromListIndex(2), "")
            compare(Host.material.valueFromListIndex(-1), undefined)
        }

        function test_anotherListIsShownWhenItIsAnnounced() {
            Host.openAnotherProject()
            compare(itemListChanged.count, 1)
            compare(list.count, 1)
            compare(list.itemAt(0).text, "ST: Steel")
        }

        function test_valuesToHideAreOnlyRead() {
            compare(Host.material.valuesToHide(), "")
            compare(Host.material.setValuesToHide, undefined)
        }
    }
}
