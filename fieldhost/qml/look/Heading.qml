// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

import QtQuick 2.15

Label {
    font.pointSize: Look.title
    font.weight: Font.DemiBold
    Accessible.role: Accessible.Heading
}
