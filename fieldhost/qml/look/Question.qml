// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Templates 2.15 as T

// A question above everything else, with two answers. Escape gives the second. Enter gives the one
// with the focus: at first that is the second where the first cannot be undone.
T.Dialog {
    id: question

    property string text
    property string confirmText
    property string cancelText
    // whether the first answer makes something go for good
    property bool danger: false
    default property alias content: extra.data

    parent: T.Overlay.overlay
    x: (parent ? parent.width - width : 0) / 2
    y: (parent ? parent.height - height : 0) / 2
    width: Math.min(600 * Look.fontScale, (parent ? parent.width : 800) - 4 * Look.gap)
    height: Math.min(implicitContentHeight + topPadding + bottomPadding,
                     (parent ? parent.height : 480) - 2 * Look.gap)
    padding: 3 * Look.gap
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    onAboutToShow: (danger ? cancelButton : confirmButton).forceActiveFocus()

    T.Overlay.modal: Rectangle {
        color: "#99000000"
    }

    contentItem: Item {
        LayoutMirroring.enabled: Look.mirrored
        LayoutMirroring.childrenInherit: true
        implicitHeight: column.height + 2 * Look.gap + answers.height

        // a long question scrolls; its answers stay
        Flickable {
            width: parent.width
            height: parent.height - answers.height - 2 * Look.gap
            contentHeight: column.height
            boundsBehavior: Flickable.StopAtBounds
            // a focus ring lies outside of its button
            clip: height < contentHeight

            Column {
                id: column

                width: parent.width
                spacing: 2 * Look.gap

                Heading {
                    text: question.title
                }
                Label {
                    visible: text !== ""
                    text: question.text
                }
                Column {
                    id: extra

                    visible: children.length > 0
                    width: parent.width
                    spacing: Look.gap
                }
            }
        }
        Grid {
            id: answers

            readonly property real half: (width - columnSpacing) / 2

            anchors.bottom: parent.bottom
            width: parent.width
            columns: Math.max(confirmButton.implicitWidth, cancelButton.implicitWidth) <= half
                     ? 2 : 1
            columnSpacing: 2 * Look.gap
            rowSpacing: 1.5 * Look.gap

            ActionButton {
                id: cancelButton

                objectName: "questionCancel"
                width: answers.columns === 2 ? answers.half : answers.width
                text: question.cancelText
                onClicked: question.reject()
            }
            ActionButton {
                id: confirmButton

                objectName: "questionConfirm"
                width: answers.columns === 2 ? answers.half : answers.width
                kind: question.danger ? "danger" : "primary"
                text: question.confirmText
                onClicked: question.accept()
            }
        }
    }
    background: Rectangle {
        radius: Look.radius
        color: Look.surface
        border.color: Look.outline
    }
}
