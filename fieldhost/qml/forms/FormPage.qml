// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import OvoSharedBase 1.0
import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../look"

// A record over the columns of a catalog.
Page {
    id: page

    // catalogs that the program brings; of others the user names the files
    readonly property var samples: [
        {
            text: qsTr("Sewer inspection, 2D or 3D"),
            catalog: ":/catalogs/inspection.json",
            form: ":/forms/inspection-form.json"
        },
        {
            text: qsTr("Sewers, metric"),
            catalog: ":/catalogs/metric.json",
            form: ":/forms/metric-form.json"
        },
        { text: qsTr("Another catalog"), catalog: "", form: "" }
    ]
    property int sample: 0
    // of the last attempt to accept the record
    property bool isAccepted: false
    property bool isRefused: false

    function openFiles() {
        form.open(Paths.local(catalogFile.text.trim()), Paths.local(formFile.text.trim()))
    }

    function accept() {
        isAccepted = form.accept()
        isRefused = !isAccepted
        if (isRefused && form.firstMistake >= 0) {
            entries.itemAt(form.firstMistake).takeFocus()
        }
    }

    title: qsTr("Inspection")

    InspectionForm {
        id: form

        Component.onCompleted: open(page.samples[0].catalog, page.samples[0].form)
        onViewChanged: {
            page.isAccepted = false
            page.isRefused = false
        }
    }

    Card {
        GridLayout {
            width: parent.width
            columns: page.wide ? 3 : 1
            columnSpacing: 2 * Look.gap
            rowSpacing: 1.5 * Look.gap

            Choice {
                objectName: "catalogChoice"
                Layout.alignment: Qt.AlignTop
                Layout.preferredWidth: 2
                caption: qsTr("Catalog")
                textRole: "text"
                model: page.samples
                // by the model, too: it begins again with its first entry in another language
                currentIndex: model.length > 0 ? page.sample : -1
                onActivated: {
                    const chosen = page.samples[index]
                    page.sample = index
                    if (chosen.catalog !== "") {
                        form.open(chosen.catalog, chosen.form)
                    }
                }
            }
            Choice {
                objectName: "viewChoice"
                Layout.alignment: Qt.AlignTop
                Layout.preferredWidth: 1
                visible: form.views.length > 1
                caption: qsTr("View")
                model: form.views
                currentIndex: form.view
                onActivated: form.view = index
            }
            Toggle {
                objectName: "is3d"
                Layout.alignment: Qt.AlignBottom
                Layout.preferredWidth: 1
                text: qsTr("3D project")
                checked: form.is3d
                onToggled: form.is3d = checked
            }
        }
        GridLayout {
            width: parent.width
            visible: page.sample === page.samples.length - 1
            columns: page.wide ? 3 : 1
            columnSpacing: 2 * Look.gap
            rowSpacing: 1.5 * Look.gap

            Field {
                id: catalogFile

                objectName: "catalogFile"
                caption: qsTr("File of the catalog")
                inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
                onAccepted: page.openFiles()
            }
            Field {
                id: formFile

                objectName: "formFile"
                caption: qsTr("File of the form, if there is one")
                inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
                onAccepted: page.openFiles()
            }
            ActionButton {
                objectName: "openFiles"
                Layout.alignment: Qt.AlignBottom
                icon.name: "folder_open"
                text: qsTr("Open")
                enabled: catalogFile.text.trim() !== "" && !form.opening
                onClicked: page.openFiles()
            }
        }
        Notice {
            objectName: "opening"
            text: form.opening ? qsTr("The catalog is being read.") : ""
        }
        Notice {
            objectName: "problem"
            kind: "bad"
            text: form.problem === "" || form.name === ""
                  ? form.problem : qsTr("%1 The form \"%2\" stays open.").arg(form.problem).arg(form.name)
        }
    }
    Card {
        visible: form.fields.length > 0

        Heading {
            objectName: "catalogName"
            text: form.name
        }
        Label {
            muted: true
            text: qsTr("Fields with a * must be filled in.")
        }
        GridLayout {
            objectName: "fields"
            width: parent.width
            columns: page.wide ? 2 : 1
            columnSpacing: 3 * Look.gap
            rowSpacing: 2 * Look.gap

            Repeater {
                id: entries

                model: form.fields

                FormEntry {
                    // half of the room each, however long the hints are
                    Layout.preferredWidth: 1
                    field: modelData
                }
            }
        }
        Notice {
            objectName: "refused"
            kind: "bad"
            text: !page.isRefused ? ""
                                  : form.mistakes > 0
                                    ? qsTr("Not accepted. Fields to correct: %1").arg(form.mistakes)
                                    : qsTr("All fields are correct now.")
        }
        Notice {
            objectName: "accepted"
            kind: "good"
            text: page.isAccepted ? qsTr("Accepted.") : ""
        }
        ActionButton {
            objectName: "accept"
            kind: "primary"
            icon.name: "check"
            text: qsTr("Accept")
            onClicked: page.accept()
        }
    }
    Card {
        visible: form.record.length > 0

        Heading { text: qsTr("Last accepted") }
        Repeater {
            model: form.record

            Fact {
                objectName: "record" + index
                caption: modelData.key
                value: modelData.value
            }
        }
    }
}
