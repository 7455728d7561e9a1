// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import QtQuick.Window 2.15

// A screen: its title, and what it holds one below the other. Scrolls where the window is too
// small, and brings what has the focus into view.
FocusScope {
    id: page

    property string title
    default property alias content: column.data
    // whether two cards have room side by side
    readonly property bool wide: width >= 860 * Look.fontScale
    readonly property real margin: wide ? 3 * Look.gap : 2 * Look.gap

    function reveal(item) {
        let ancestor = item
        while (ancestor && ancestor !== column) {
            ancestor = ancestor.parent
        }
        if (!ancestor) {
            return
        }
        const top = item.mapToItem(flickable.contentItem, 0, 0).y - margin
        const bottom = top + item.height + 2 * margin
        if (top < flickable.contentY) {
            flickable.contentY = Math.max(0, top)
        } else if (bottom > flickable.contentY + flickable.height) {
            flickable.contentY = Math.min(bottom, flickable.contentHeight) - flickable.height
        }
    }

    Connections {
        target: page.Window.window

        function onActiveFocusItemChanged() {
            page.reveal(page.Window.activeFocusItem)
        }
    }

    Flickable {
        id: flickable

        objectName: "pageFlickable"
        anchors.fill: parent
        contentWidth: width
        contentHeight: column.height + 2 * page.margin
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        T.ScrollBar.vertical: Scroll {}

        Column {
            id: column

            x: page.margin
            y: page.margin
            width: flickable.width - 2 * page.margin
            spacing: 2 * Look.gap

            Heading {
                objectName: "pageTitle"
                text: page.title
                font.pointSize: Look.title * 1.25
            }
        }
    }
}
