// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import OvoSharedBase 1.0
import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../look"

// One field of a form: a line to type into or a list, what the rules say of it, and what was
// entered before.
ColumnLayout {
    id: entry

    property var field // a FormField
    readonly property var type: field.type
    readonly property bool isChosen: type.hasList && !type.editableList
    readonly property string messageKind: field.verdict === FormField.Valid
                                          ? field.text === "" ? "info" : "good"
                                          : field.finished ? "bad" : "info"
    // in words: the verdict, and what the rules ask for as long as the text is not right
    readonly property string message: {
        const sentences = field.verdictText === "" ? [] : [field.verdictText]
        if (field.verdict !== FormField.Valid || field.text === "") {
            for (const line of field.hint.split("\n")) {
                if (line !== "") {
                    sentences.push(line + ".")
                }
            }
        }
        return sentences.join(" ")
    }

    function takeFocus() {
        (isChosen ? choice.box : line.input).forceActiveFocus(Qt.TabFocusReason)
    }

    Layout.fillWidth: true
    Layout.alignment: Qt.AlignTop
    spacing: Look.gap / 2

    Field {
        id: line

        objectName: entry.field.key
        visible: !entry.isChosen
        caption: entry.field.caption
        unit: entry.type.unit
        mandatory: entry.type.mandatory
        message: entry.message
        messageKind: entry.messageKind
        text: entry.field.text
        inputMethodHints: entry.type.inputType === CInputType.InputTypeInteger
                          || entry.type.inputType === CInputType.InputTypeDecimal
                          ? Qt.ImhFormattedNumbersOnly
                          : entry.type.inputType === CInputType.InputTypeDate ? Qt.ImhDate
                                                                              : Qt.ImhNone
        onEdited: entry.field.text = text
        onAccepted: input.nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)

        Connections {
            target: line.input

            function onActiveFocusChanged() {
                if (!line.input.activeFocus) {
                    entry.field.finish()
                }
            }
        }
    }
    Choice {
        id: choice

        // an optional list begins with no entry at all
        readonly property int offset: entry.type.mandatory ? 0 : 1

        objectName: entry.field.key
        visible: entry.isChosen
        caption: entry.field.caption
        mandatory: entry.type.mandatory
        textRole: "text"
        model: (offset ? [{ text: qsTr("Not stated"), value: "" }] : []).concat(entry.type.itemList)
        // by the model, too: it begins again with its first entry when it is another one
        currentIndex: model.length > 0 ? entry.field.choice + offset : -1
        displayText: currentIndex < 0 ? qsTr("Choose") : currentText
        onActivated: entry.field.choice = index - offset
    }
    Label {
        objectName: entry.field.key + "Message"
        visible: entry.isChosen && text !== ""
        text: entry.message
        color: entry.messageKind === "info" ? Look.muted : Look.colourOf(entry.messageKind)
        font.pointSize: Look.small
    }
    Flow {
        width: parent.width
        visible: !entry.isChosen && entry.type.hasList
        spacing: Look.gap

        Repeater {
            model: entry.isChosen ? [] : entry.type.itemList

            ActionButton {
                objectName: entry.field.key + "Suggestion" + index
                text: modelData.text
                onClicked: entry.field.choice = index
            }
        }
    }
    Flow {
        width: parent.width
        visible: !entry.isChosen && recent.count > 0
        spacing: Look.gap

        Label {
            width: implicitWidth
            height: Look.touch
            text: qsTr("Before:")
            muted: true
            font.pointSize: Look.small
            verticalAlignment: Text.AlignVCenter
        }
        Repeater {
            id: recent

            model: entry.field.recent

            ActionButton {
                objectName: entry.field.key + "Recent" + index
                visible: index < entry.field.recent.maxlinenumber
                                text: model.display
                onClicked: {
                    entry.field.text = text
                    entry.field.finish()
                }
            }
        }
    }
}
