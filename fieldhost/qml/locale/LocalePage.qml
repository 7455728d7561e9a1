// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import OvoFieldHost 1.0
import OvoSharedBase 1.0
import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../look"

// Which catalog, country and language the project has, and how values look with them.
Page {
    id: page

    function indexIn(choices, value) {
        return choices.findIndex(choice => choice.value === value)
    }

    title: qsTr("Units and language")

    GridLayout {
        width: parent.width
        columns: page.wide ? 2 : 1
        columnSpacing: 2 * Look.gap
        rowSpacing: 2 * Look.gap

        Card {
            Layout.alignment: Qt.AlignTop

            Heading { text: qsTr("Choose") }
            Choice {
                objectName: "device"
                caption: qsTr("Locale of the device")
                textRole: "text"
                model: ProjectLocale.devices
                currentIndex: page.indexIn(model, ProjectLocale.device)
                onActivated: ProjectLocale.device = model[index].value
            }
            Choice {
                objectName: "catalog"
                caption: qsTr("Catalog of the project")
                textRole: "text"
                model: ProjectLocale.catalogs
                currentIndex: page.indexIn(model, ProjectLocale.catalog)
                displayText: currentIndex >= 0 ? currentText : ProjectLocale.catalogName
                onActivated: ProjectLocale.catalog = model[index].value
            }
            Field {
                objectName: "catalogFile"
                caption: qsTr("Another catalog")
                placeholderText: qsTr("Path of a file")
                message: ProjectLocale.objection
                messageKind: "bad"
                inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
                onAccepted: ProjectLocale.catalog = text
            }
            Choice {
                objectName: "country"
                caption: qsTr("Country of the project")
                textRole: "text"
                model: ProjectLocale.countries
                currentIndex: page.indexIn(model, ProjectLocale.country)
                displayText: currentIndex >= 0 ? currentText : ProjectLocale.country
                onActivated: ProjectLocale.country = model[index].value
            }
            Choice {
                objectName: "language"
                caption: qsTr("Language of the project")
                textRole: "text"
                model: ProjectLocale.languages
                currentIndex: page.indexIn(model, ProjectLocale.language)
                displayText: currentIndex >= 0 ? currentText : ProjectLocale.language
                onActivated: ProjectLocale.language = model[index].value
            }
            Repeater {
                model: ProjectLocale.warnings

                Notice {
                    kind: "warning"
                    text: modelData
                }
            }
            ActionButton {
                objectName: "closeProject"
                icon.name: "close"
                text: qsTr("Close the project")
                enabled: ProjectLocale.isOpen
                onClicked: ProjectLocale.close()
            }
        }
        ColumnLayout {
            Layout.alignment: Qt.AlignTop
            spacing: 2 * Look.gap

            Formatted {}
            Card {
                visible: ProjectLocale.columns.length > 0

                Heading { text: qsTr("Columns of the catalog") }
                Repeater {
                    model: ProjectLocale.columns

                    Fact {
                        caption: modelData.key
                        value: modelData.ofCatalog ? qsTr("%1, from the catalog").arg(modelData.unit)
                                                   : qsTr("%1, as distances").arg(modelData.unit)
                    }
                }
            }
        }
    }
}
