// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Kivora

// Shown while profiles still need to be set up; a click opens the settings.
AbstractButton {
    id: banner
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: banner.clicked()

    hoverEnabled: true
    padding: Theme.spacingML
    text: "Setup required - click to configure profiles"

    contentItem: RowLayout {
        spacing: Theme.spacingM
        SymbolIcon {
            name: "exclamationmark.triangle.fill"
            color: Theme.orange
            size: Theme.symbolL
        }
        Text {
            Layout.fillWidth: true
            text: banner.text
            font: Theme.subheadline
            color: Theme.primaryText
            wrapMode: Text.WordWrap
        }
        SymbolIcon {
            name: "chevron.right"
            color: Theme.secondaryText
            size: Theme.symbolS
        }
    }

    background: Rectangle {
        radius: Theme.cornerRadius
        color: Theme.warningBackground
        border.width: banner.visualFocus ? 2 : 1
        border.color: Theme.faded(Theme.orange, banner.hovered || banner.visualFocus ? 0.45 : 0.25)
        Behavior on border.color { ColorAnimation { duration: Theme.hoverDuration } }
    }
}
