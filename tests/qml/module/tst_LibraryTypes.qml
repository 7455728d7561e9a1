// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import QtTest 1.15
import OvoSharedBase 1.0
import Ovo.Test 1.0

// The library's own classes under their names; what they do is tested in C++.
Item {
    id: root

    width: 400
    height: 200

    TextField {
        id: field

        validator: FieldValidator { rules: rules }

        TextValidator {
            id: rules

            Component.onCompleted: addValidator(TextValidator.ValidatorInt, { bottom: 1, top: 20 })
        }
    }

    QmlStringListModel {
        id: recent
    }

    ListView {
        id: view

        model: recent
        delegate: Text { text: display }
    }

    MountedUSBDeviceList {
        id: drives
    }

    USBDriveCleanAccessManager {
        id: access
    }

    Text {
        id: mark

        text: ProjectTypeGlobal.is3d ? "3D" : "2D"
    }

    TestCase {
        name: "LibraryTypes"
        when: windowShown

        function init() {
            Host.begin()
        }

        function cleanup() {
            Host.end()
        }

        function test_textFieldGoesByRules() {
            field.forceActiveFocus()
            for (const key of "3a0") {
                keyClick(key)
            }
            compare([field.text, field.acceptableInput], ["3", true]) // neither "3a" nor 30
            keyClick(Qt.Key_Backspace)
            compare([field.text, field.acceptableInput], ["", false])
            verify(rules.hasHint)
            compare(rules.hint.split("\n").length, 2)
        }

        function test_listOfTexts() {
            recent.push_front("first")
            recent.push_back("last")
            compare(view.count, 2)
            compare([recent.contains("last"), recent.maxlinenumber], [true, 3])
            recent.remove(0)
            compare(view.count, 1)
        }

        function test_column() {
            compare([Host.column.caption, Host.column.mandatory], ["Material", true])
            compare(Host.column.inputType, CInputType.InputTypeText)
            compare(Host.column.controlType, CInputType.TextBox)
        }

        function test_messages() {
            compare([UiMessageTypes.General, UiMessageTypes.Question, UiMessageTypes.Accepted,
                     UiMessageTypes.CustomActiontriggered, UiMessageTypes.WrongDevice],
                    [0, 2, 1, 3, -1])
        }

        function test_errorWord() {
            compare(Host.errorCode(0x000B0100).isNoError, true)
            compare(Host.errorCode(0x800B0102).isNoError, false)
            compare(Host.errorCode(0x800B0102).errorCode >>> 0, 0x800B0102)
        }

        function test_projectType() {
            compare(mark.text, "2D")
            Host.openProjectOfType("PRO3D")
            compare(mark.text, "3D")
            compare(ProjectTypeGlobal.isPlumberCatalog, false)
        }

        function test_clock() {
            const before = new Date()
            const read = Dates.isoDate(OsSettings.date)
            const after = new Date()
            verify([Qt.formatDate(before, "yyyy-MM-dd"), Qt.formatDate(after, "yyyy-MM-dd")].includes(read))
            compare(Dates.isoTime(OsSettings.time).length, 8)
        }

        function test_drive() {
            if (!Host.hasDrives) {
                skip("mounts and device nodes need the rights of root, and no user namespace")
            }
            Host.plugDrive()
            compare(drives.getUSBMountPathRoot(), ["/media/usbdrive", true])
            compare(Host.commandsOfDrive(), ["mount /dev/sda1", "umount /dev/sda1"])
            compare(access.lock("/media/usbdrive/export"), false) // exFAT has no such mark
            compare(Host.commandsOfDrive().slice(-1), ["mount /dev/sda1"])
            compare(access.unlock(), false)
            compare(Host.commandsOfDrive(), ["umount /dev/sda1"])
        }

        function test_whatCannotBeCreated_data() {
            return ["CInputType", "UiMessageTypes", "CErrorCode", "LocaleFormats", "OsSettings",
                    "ProjectTypeGlobal", "Formats", "Dates", "Paths"].map(name => ({ tag: name }))
        }

        function test_whatCannotBeCreated(row) {
            try {
                Qt.createQmlObject("import OvoSharedBase 1.0; " + row.tag + " {}", root)
            } catch (error) {
                return
            }
            fail(row.tag + " was created")
        }
    }
}
