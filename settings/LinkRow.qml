// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Kivora

// A link: an optional symbol and a title in the accent colour. `clicked` is left to the
// owner, which opens `url` in the browser.
AbstractButton {
    id: link

    property string symbol
    property url url

    hoverEnabled: true
    padding: Theme.spacingXXS
    font: Theme.body
    Accessible.role: Accessible.Link
    Accessible.name: text
    Accessible.description: String(url)
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: link.clicked()

    Keys.onReturnPressed: event => link.pressByKey(event)
    Keys.onEnterPressed: event => link.pressByKey(event)

    function pressByKey(event: KeyEvent) {
        event.accepted = true
        link.clicked()
    }

    HoverHandler { cursorShape: Qt.PointingHandCursor }
    ToolTip.text: String(link.url)
    ToolTip.visible: hovered
    ToolTip.delay: 800

    contentItem: RowLayout {
        spacing: Theme.spacingM
        SymbolIcon {
            visible: link.symbol.length > 0
            name: link.symbol
            color: Theme.accent
            size: Theme.symbolXL
        }
        Text {
            textFormat: Text.PlainText
            text: link.text
            font.family: link.font.family
            font.pixelSize: link.font.pixelSize
            font.underline: link.hovered || link.visualFocus
            color: link.pressed ? Qt.darker(Theme.accent, 1.2) : Theme.accent
        }
    }

    background: Item {
        FocusRing {
            shown: link.visualFocus
            itemRadius: Theme.smallRadius
        }
    }
}
