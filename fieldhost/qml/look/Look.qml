// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

pragma Singleton

import QtQuick 2.15

// Colours, sizes and fonts of all screens. Each pair of a text and its ground has a contrast of
// 4.5 to 1 at least, each outline and focus ring 3 to 1 (WCAG 2.1, level AA).
QtObject {
    property bool dark: false
    // right to left; set by the window, read by what opens above it
    property bool mirrored: false
    // fonts, and with them whatever is touched, grow by it
    property real fontScale: 1

    readonly property color background: dark ? "#10171a" : "#f1f3f0"
    readonly property color surface: dark ? "#1a2327" : "#ffffff"
    readonly property color raised: dark ? "#263238" : "#e6ebe8"
    readonly property color text: dark ? "#e9efee" : "#17211e"
    readonly property color muted: dark ? "#abb8b6" : "#4c5a55"
    readonly property color accent: dark ? "#6fd0dc" : "#0a5f6e"
    readonly property color accentText: dark ? "#06282e" : "#ffffff"
    readonly property color good: dark ? "#82d89c" : "#1b6433"
    readonly property color warning: dark ? "#f2c063" : "#7a4a00"
    readonly property color bad: dark ? "#ffa198" : "#a8231b"
    readonly property color badText: dark ? "#3b0804" : "#ffffff"
    readonly property color outline: dark ? "#7e8d8a" : "#75827d"

    readonly property real gap: 8 * fontScale
    readonly property real touch: 48 * fontScale
    readonly property real radius: 10

    // in points
    readonly property real small: 14 * fontScale
    readonly property real body: 16 * fontScale
    readonly property real title: 22 * fontScale
    readonly property real display: 34 * fontScale

    readonly property var families: Qt.fontFamilies()
    readonly property string family: families.indexOf("Inter") >= 0 ? "Inter"
                                                                    : Qt.application.font.family
    readonly property string iconFamily: "Material Icons"
    readonly property bool hasIcons: families.indexOf(iconFamily) >= 0

    // Whether a component is as wide as its parent: in an Item or a Column. A layout sets the width
    // itself, and what is in a Row has its own; unlike a Column, these have a layoutDirection.
    function isFilledIn(parent) {
        return parent && parent.layoutDirection === undefined
    }

    // the colour of a kind of message: "info", "good", "warning" or "bad"
    function colourOf(kind) {
        switch (kind) {
        case "good":
            return good
        case "warning":
            return warning
        case "bad":
            return bad
        default:
            return accent
        }
    }
}
