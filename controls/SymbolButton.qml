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
    Accessible.name: tooltip
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: button.clicked()

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
        border.width: button.visualFocus ? 1 : 0
        border.color: Theme.accent
    }
}
