// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Templates 2.15 as T

// Says that there is more; what it stands beside is dragged itself.
T.ScrollBar {
    id: bar

    implicitWidth: 10
    padding: 2
    visible: size < 1
    minimumSize: 0.1

    contentItem: Rectangle {
        implicitWidth: 6
        radius: 3
        color: Look.outline
    }
}
