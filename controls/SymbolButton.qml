// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A small square button showing only a symbol, on a rounded tinted background, with a
// tooltip: the hover actions of the profile rows. `size` and `radius` default to the
// popover's row buttons; `fill` and `fillOpacity` give the background.
AbstractButton {
    id: button

    property string symbol
    property color foreground: Theme.secondaryText
    property color fill: Theme.quaternaryText
    property real fillOpacity: 0.4
    property string tooltip
    property int size: Theme.iconButtonSize
    property int radius: Theme.smallRadius
    property int symbolSize: Theme.symbolM

    implicitWidth: size
    implicitHeight: size
    hoverEnabled: true
    // Only a symbol on screen: the tooltip is what a screen reader says.
    Accessible.name: tooltip
    Accessible.role: Accessible.Button
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

    ToolTip.text: tooltip
    ToolTip.visible: hovered && tooltip.length > 0
    ToolTip.delay: 500

    contentItem: Item {
        SymbolIcon {
            anchors.centerIn: parent
            name: button.symbol
            color: button.foreground
            size: button.symbolSize
        }
    }

    background: Rectangle {
        radius: button.radius
        color: button.fill
        opacity: button.pressed ? Math.min(1, button.fillOpacity * 2)
                                : button.hovered ? Math.min(1, button.fillOpacity * 1.4)
                                                 : button.fillOpacity
    }

    FocusRing {
        shown: button.visualFocus
        itemRadius: button.radius
    }
}
