// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoSharedBase 1.0
import QtQuick 2.15
import QtTest 1.15
import "qrc:/screens/forms"
import "qrc:/screens/look"

// The form as an inspector fills it in.
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
        source: "qrc:/screens/forms/FormPage.qml"
    }

    ScreenCase {
        name: "Form"

        function init() {
            loader.active = false
            loader.active = true
            item("OBJ_Key") // the catalog is read in a thread
        }

        function shown(objectName) {
            return screenTest.find(root, objectName) !== null
        }

        function fill(objectName, text) {
            const field = item(objectName)
            // the fields of a form that has just been made move to their places
            tryVerify(() => {
                bringIntoView(field)
                mouseClick(field.input)
                return field.input.activeFocus
            }, patience)
            field.input.selectAll()
            keyClick(Qt.Key_Delete)
            type(text)
        }

        // opens a list by touch and takes the entry of that text
        function choose(objectName, text) {
            const choice = item(objectName)
            bringIntoView(choice.box)
            touchEvent(choice.box).press(0, choice.box).commit()
            touchEvent(choice.box).release(0, choice.box).commit()
            tryVerify(() => choice.box.popup.opened, patience)
            const list = choice.box.popup.contentItem
            const entry = choice.model.findIndex(each => (each.text || each) === text)
            verify(entry >= 0, "there is no " + text)
            list.positionViewAtIndex(entry, ListView.Contain)
            let delegate = null
            tryVerify(function() {
                delegate = list.itemAtIndex(entry)
                return delegate !== null
            }, patience)
            waitUntilPlaced(delegate)
            mouseClick(delegate)
            tryVerify(() => !choice.box.popup.visible, patience)
            compare(choice.displayText, text)
        }

        function test_theSampleIsShown() {
            compare(item("catalogName").text, "Sewer inspection, 2D or 3D")
            compare(item("OBJ_Key").caption, "Section")
            verify(item("OBJ_Key").mandatory)
            compare(item("OBJ_Size").unit, "mm")
            verify(!item("OBJ_Size").mandatory)
            compare(item("OBJ_Size").message,
                    "Minimum value larger or equal 50. Maximum value smaller or equal 5000.")
            compare(item("SEC_Material").displayText, "Choose")
            compare(item("INS_InspectionDir").displayText, "Not stated")
            const texts = screenTest.visibleTexts(root)
            for (const text of ["Section *", "Diameter", "mm", "Material *"]) {
                verify(texts.includes(text), text)
            }
        }

        function test_verdictsWhileTyping() {
            const field = item("OBJ_Size")
            fill("OBJ_Size", "3")
            compare(field.message, "Not correct yet. Minimum value larger or equal 50. "
                    + "Maximum value smaller or equal 5000.")
            compare(field.messageKind, "info")
            type("00")
            compare(field.message, "Correct.")
            compare(field.messageKind, "good")
            type("0000")
            verify(field.message.startsWith("Not correct yet. "))
            keyClick(Qt.Key_Return) // done with it, on to the next one
            verify(field.message.startsWith("Not correct. "))
            compare(field.messageKind, "bad")
            verify(item("OBJ_Offset").input.activeFocus)
        }

        function test_threeMistakesAreMendedOneByOne() {
            fill("OBJ_Key", "A section whose name is too long")
            fill("OBJ_Size", "wide")
            tap("accept")
            // the section, the diameter, and the material and length that are missing
            compare(item("refused").text, "Not accepted. Fields to correct: 4")
            verify(item("OBJ_Key").input.activeFocus)
            compare(item("OBJ_Key").message,
                    "Not correct. Maximum length smaller or equal 20. Expression can not be empty.")
            compare(item("OBJ_Size").message, "Not correct. Minimum value larger or equal 50. "
                    + "Maximum value smaller or equal 5000.")
            compare(item("SEC_MaterialMessage").text, "Must be filled in.")
            verify(item("SEC_Length").message.startsWith("Must be filled in. "))
            verify(!shown("record0"))

            fill("SEC_Length", "12,5")
            compare(item("SEC_Length").message, "Correct.")
            fill("OBJ_Key", "S 17")
            fill("OBJ_Size", "300")
            click("accept")
            compare(item("refused").text, "Not accepted. Fields to correct: 1")
            verify(item("SEC_Material").box.activeFocus)
            choose("SEC_Material", "Vitrified clay")
            compare(item("refused").text, "All fields are correct now.")
            keyClick(Qt.Key_Tab) // away from the list
            item("accept").forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Enter)
            verify(!shown("refused"))
            compare(item("accepted").text, "Accepted.")
            compare(item("record0").value, "S 17")
            compare(item("record3").value, "300")
            compare(item("record6").value, "VC")
            compare(item("record6").caption, "SEC_Material")
        }

        function test_recentEntriesAreOffered() {
            fill("SEC_Length", "1")
            choose("SEC_Material", "Concrete")
            for (const name of ["S 1", "S 2", "S 3", "S 4"]) {
                fill("OBJ_Key", name)
                tap("accept")
                compare(item("accepted").text, "Accepted.")
            }
            compare(item("OBJ_KeyRecent0").text, "S 4")
            compare(item("OBJ_KeyRecent2").text, "S 2")
            verify(!shown("OBJ_KeyRecent3")) // three lines, as the library's list has it
            tap("OBJ_KeyRecent2")
            compare(item("OBJ_Key").text, "S 2")
            compare(item("OBJ_Key").message, "Correct.")
            click("accept")
            compare(item("OBJ_KeyRecent0").text, "S 2")
            compare(item("OBJ_KeyRecent1").text, "S 4")
        }

        function test_aListByKeyboard() {
            const box = item("SEC_Material").box
            box.forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Return)
            tryVerify(() => box.popup.opened, patience)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Return)
            tryVerify(() => !box.popup.visible, patience)
            compare(item("SEC_Material").displayText, "Concrete")
            compare(item("SEC_MaterialMessage").text, "Correct.")
        }

        function test_anOptionalListCanBeLeftAgain() {
            choose("INS_InspectionDir", "Upstream")
            compare(item("INS_InspectionDirMessage").text, "Correct.")
            choose("INS_InspectionDir", "Not stated")
            verify(!shown("INS_InspectionDirMessage"))
        }

        function test_anEditableListOffersItsEntries() {
            fill("INS_Weather", "Hail")
            compare(item("INS_Weather").message, "Correct.")
            tap("INS_WeatherSuggestion1")
            compare(item("INS_Weather").text, "Rain")
        }

        function test_aTruthValueIsYesOrNo() {
            choose("INS_Cleaned", "Yes")
            compare(item("INS_CleanedMessage").text, "Correct.")
        }

        function test_marksFollowTheProject() {
            choose("INS_InspectionDir", "Upstream")
            choose("SEC_Material", "Concrete")
            verify(!item("OBJ_FromNode_REF").mandatory)
            tap("is3d")
            verify(ProjectTypeGlobal.is3d)
            for (const key of ["OBJ_Key", "OBJ_FromNode_REF", "OBJ_ToNode_REF", "OBJ_Size",
                               "OBJ_Offset", "INS_InspectionDir"]) {
                verify(item(key).mandatory, key)
            }
            for (const key of ["SEC_Length", "SEC_Material", "INS_Date", "INS_Weather"]) {
                verify(!item(key).mandatory, key)
            }
            // what was chosen stays, though the lists have an entry more or less now
            compare(item("INS_InspectionDir").displayText, "Upstream")
            compare(item("SEC_Material").displayText, "Concrete")
            verify(screenTest.visibleTexts(root).includes("From manhole *"))
            click("accept")
            compare(item("refused").text, "Not accepted. Fields to correct: 5")

            item("is3d").forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Space)
            verify(!ProjectTypeGlobal.is3d)
            verify(!item("OBJ_FromNode_REF").mandatory)
            verify(item("SEC_Length").mandatory)
            compare(item("refused").text, "Not accepted. Fields to correct: 2")
            // in views that place no objects nothing changes
            choose("viewChoice", "overview_s")
            verify(!shown("refused"))
            verify(item("OBJ_Key").mandatory)
            tap("is3d")
            verify(item("OBJ_Key").mandatory)
            verify(!shown("OBJ_Size"))
            tap("is3d")
        }

        function test_anotherCatalog() {
            choose("catalogChoice", "Sewers, metric")
            tryCompare(item("catalogName"), "text", "Sewers, metric", patience)
            compare(item("SEC_Height").caption, "Height")
            choose("catalogChoice", "Another catalog")
            verify(!item("openFiles").enabled)
            fill("catalogFile", screenTest.directory + "/drains.json")
            tap("openFiles")
            tryCompare(item("catalogName"), "text", "Drains", patience)
            compare(item("DRN_Name").caption, "DRN_Name")
            compare(item("DRN_Name").unit, "°")
            verify(!shown("problem"))
            verify(!shown("viewChoice"))
        }

        function test_aCatalogThatCannotBeUsed_data() {
            return [
                { tag: "missing", file: "/missing.json", form: "", problem:
                    "The catalog \"%1/missing.json\" cannot be read: there is no such file." },
                { tag: "broken", file: "/broken.json", form: "", problem:
                    "The catalog \"%1/broken.json\" cannot be used. Line 2, column 7: something is missing before this." },
                { tag: "broken form", file: "/drains.json", form: "/drains.json", problem:
                    "The form \"%1/drains.json\" cannot be used: the form has no key \"country\"." },
            ]
        }

        function test_aCatalogThatCannotBeUsed(data) {
            fill("OBJ_Key", "S 17")
            choose("catalogChoice", "Another catalog")
            if (data.form !== "") {
                fill("formFile", screenTest.directory + data.form)
            }
            fill("catalogFile", "file://" + screenTest.directory + data.file)
            keyClick(Qt.Key_Enter)
            tryVerify(() => shown("problem"), patience)
            compare(item("problem").text, data.problem.arg(screenTest.directory)
                    + " The form \"Sewer inspection, 2D or 3D\" stays open.")
            compare(item("OBJ_Key").text, "S 17")
        }

        function test_theKeyboardGoesThroughAllFields() {
            item("OBJ_Key").input.forceActiveFocus(Qt.TabFocusReason)
            for (const key of ["OBJ_FromNode_REF", "OBJ_ToNode_REF", "OBJ_Size", "OBJ_Offset",
                               "SEC_Length", "SEC_Material"]) {
                keyClick(Qt.Key_Tab)
                verify(item(key).activeFocus, key)
            }
        }

        function test_nothingIsCutOff_data() {
            return [{ tag: "light", dark: false }, { tag: "right to left", mirrored: true }]
        }

        function test_nothingIsCutOff(data) {
            Look.mirrored = data.mirrored === true
            fill("OBJ_Key", "A section whose name is too long")
            fill("OBJ_Size", "wide")
            choose("catalogChoice", "Another catalog")
            fill("catalogFile", screenTest.directory + "/missing.json")
            click("openFiles")
            click("accept")
            verifyLayoutInAllSizes(root)
            verifyLayoutInGerman(root)
        }
    }
}
