// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15

// An icon of the font "Material Icons", by the font's own name for it. Takes no room where the font
// is not installed: whatever has an icon has a text, too.
Text {
    property string name

    visible: Look.hasIcons && name !== ""
    text: Look.hasIcons ? name : "" // the font has a ligature for each name
    color: Look.text
    font.family: Look.iconFamily
    font.pointSize: Look.title
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
