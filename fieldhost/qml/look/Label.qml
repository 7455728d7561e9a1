// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15

// A text as wide as what holds it. It wraps and never ends in dots.
Text {
    property bool muted: false

    width: Look.isFilledIn(parent) ? parent.width : implicitWidth
    Layout.fillWidth: true
    color: muted ? Look.muted : Look.text
    font.family: Look.family
    font.pointSize: Look.body
    textFormat: Text.PlainText // names of files may look like markup
    wrapMode: Text.Wrap
    // explicit, so that mirroring turns it
    horizontalAlignment: Text.AlignLeft
}
