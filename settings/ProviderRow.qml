// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// An AI provider: its name over the models it offers, and at the trailing edge whether it
// is configured.
RowLayout {
    id: row

    property string name
    property string models
    property bool configured: false

    Layout.fillWidth: true
    spacing: Theme.spacingL

    ColumnLayout {
        Layout.fillWidth: true
        spacing: Theme.spacingXXS
        Text {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            text: row.name
            font: Theme.body
            color: Theme.primaryText
        }
        Text {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            text: row.models
            font: Theme.caption
            color: Theme.secondaryText
        }
    }

    Text {
        textFormat: Text.PlainText
        objectName: "providerStatus"
        text: row.configured ? qsTr("Configured") : qsTr("Not configured")
        font: Theme.subheadline
        color: row.configured ? Theme.green : Theme.secondaryText
    }
}
