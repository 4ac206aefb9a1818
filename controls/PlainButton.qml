// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A borderless text button with an optional leading symbol, as the popover's footer and the
// sheets' title bars use. Focus shows as the focus ring; Space and Return press it.
AbstractButton {
    id: button

    property string symbol
    property color foreground: Theme.secondaryText
    property font textFont: Theme.subheadline

    hoverEnabled: true
    padding: Theme.spacingXS
    leftPadding: Theme.spacingS
    rightPadding: Theme.spacingS
    Accessible.name: text
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: if (button.enabled) button.clicked()

    Keys.onReturnPressed: event => button.pressByKey(event)
    Keys.onEnterPressed: event => button.pressByKey(event)

    function pressByKey(event: KeyEvent) {
        event.accepted = true
        if (button.enabled) {
            button.clicked()
        }
    }

    contentItem: Row {
        spacing: Theme.spacingXS
        SymbolIcon {
            visible: button.symbol.length > 0
            name: button.symbol
            color: button.foreground
            size: Theme.symbolM
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            textFormat: Text.PlainText
            text: button.text
            font: button.textFont
            color: button.foreground
            anchors.verticalCenter: parent.verticalCenter
        }
    }

    background: Rectangle {
        radius: Theme.smallRadius
        color: button.pressed ? Theme.controlBackground
                              : button.hovered
                                ? Theme.faded(Theme.controlBackground, 0.7) : "transparent"
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration } }

        FocusRing {
            shown: button.visualFocus
            itemRadius: Theme.smallRadius
        }
    }
}
