// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A title over a secondary description, with no control.
ColumnLayout {
    id: entry

    property string title
    property string description

    Layout.fillWidth: true
    spacing: Theme.spacingXXS

    Text {
        textFormat: Text.PlainText
        objectName: "entryTitle"
        Layout.fillWidth: true
        text: entry.title
        font.family: Theme.body.family
        font.pixelSize: Theme.body.pixelSize
        font.weight: Font.Medium
        color: Theme.primaryText
        wrapMode: Text.WordWrap
    }
    Text {
        textFormat: Text.PlainText
        objectName: "entryDescription"
        Layout.fillWidth: true
        text: entry.description
        font: Theme.subheadline
        color: Theme.secondaryText
        wrapMode: Text.WordWrap
    }
}
