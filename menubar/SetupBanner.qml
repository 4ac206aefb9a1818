// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Kivora

// Shown while profiles still need to be set up; a click opens the settings.
AbstractButton {
    id: banner

    hoverEnabled: true
    padding: Theme.spacingML
    text: qsTr("Setup required - click to configure profiles")
    Accessible.name: text
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: banner.clicked()

    Keys.onReturnPressed: event => banner.pressByKey(event)
    Keys.onEnterPressed: event => banner.pressByKey(event)

    function pressByKey(event: KeyEvent) {
        event.accepted = true
        banner.clicked()
    }

    contentItem: RowLayout {
        spacing: Theme.spacingM
        SymbolIcon {
            name: "exclamationmark.triangle.fill"
            color: Theme.orange
            size: Theme.symbolL
        }
        Text {
            textFormat: Text.PlainText
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
        border.width: 1
        border.color: Theme.faded(Theme.orange, banner.hovered ? 0.45 : 0.25)
        Behavior on border.color { ColorAnimation { duration: Theme.hoverDuration } }

        FocusRing {
            shown: banner.visualFocus
            inset: true
            itemRadius: Theme.cornerRadius
        }
    }
}
