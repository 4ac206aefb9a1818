// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// Shown while no page is selected.
Rectangle {
    color: Theme.windowBackground

    Column {
        anchors.centerIn: parent
        spacing: Theme.spacingM
        SymbolIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "gearshape"
            color: Theme.tertiaryText
            size: Theme.headerIconSize
        }
        Text {
            textFormat: Text.PlainText
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Select a settings page")
            font: Theme.headline
            color: Theme.secondaryText
        }
    }
}
