// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../look"

// Distance, pan and tilt, one below the other over the same time.
ColumnLayout {
    id: plots

    property var source // a Recording or a ClipTrace
    property string distanceValue
    property string panValue
    property string tiltValue

    width: parent ? parent.width : implicitWidth
    spacing: Look.gap

    Plot {
        objectName: plots.objectName + "Distance"
        caption: qsTr("Distance in %1").arg(plots.source.unit)
        value: plots.distanceValue
        curve: plots.source.distance
    }
    Plot {
        objectName: plots.objectName + "Pan"
        caption: qsTr("Pan in degrees")
        value: plots.panValue
        curve: plots.source.pan
    }
    Plot {
        objectName: plots.objectName + "Tilt"
        caption: qsTr("Tilt in degrees")
        value: plots.tiltValue
        curve: plots.source.tilt
    }
    Label {
        text: qsTr("Time in seconds")
        muted: true
        font.pointSize: Look.small
        horizontalAlignment: Text.AlignRight
    }
}
