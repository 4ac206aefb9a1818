// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A label with its value in secondary text at the trailing edge.
RowLayout {
    id: row

    property string label
    property string value
    property bool emphasized: false

    Layout.fillWidth: true
    spacing: Theme.spacingL
    Accessible.role: Accessible.StaticText
    Accessible.name: label
    Accessible.description: value

    Text {
        textFormat: Text.PlainText
        Layout.fillWidth: true
        text: row.label
        font.family: Theme.body.family
        font.pixelSize: Theme.body.pixelSize
        font.weight: row.emphasized ? Font.Medium : Font.Normal
        color: Theme.primaryText
        elide: Text.ElideRight
    }
    Text {
        textFormat: Text.PlainText
        objectName: "value"
        text: row.value
        font: Theme.body
        color: Theme.secondaryText
    }
}
