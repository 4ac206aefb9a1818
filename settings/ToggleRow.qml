// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A switch row: a title over a secondary description, the switch at the trailing edge.
// `checked` is the setting shown; `toggled` reports the user's change, which the owner writes
// to the setting (a change the setting refuses springs back).
RowLayout {
    id: row

    property string title
    property string description
    property bool checked: false

    signal toggled(bool checked)

    Layout.fillWidth: true
    spacing: Theme.spacingL

    ColumnLayout {
        Layout.fillWidth: true
        spacing: Theme.spacingXXS
        Text {
            textFormat: Text.PlainText
            objectName: "toggleTitle"
            Layout.fillWidth: true
            text: row.title
            font: Theme.body
            color: Theme.primaryText
            elide: Text.ElideRight
        }
        Text {
            textFormat: Text.PlainText
            objectName: "toggleDescription"
            Layout.fillWidth: true
            visible: row.description.length > 0
            text: row.description
            font: Theme.subheadline
            color: Theme.secondaryText
            elide: Text.ElideRight
        }
    }

    Toggle {
        objectName: "toggle"
        Layout.alignment: Qt.AlignVCenter
        value: row.checked
        Accessible.name: row.title
        Accessible.description: row.description
        onUserToggled: on => row.toggled(on)
    }
}
