// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A small capsule with a short status text in a tint, such as "Coming Soon", with an optional
// leading symbol and tooltip.
Rectangle {
    id: badge

    property string text
    property string symbol
    property string tooltip
    property color tint: Theme.orange

    implicitWidth: row.implicitWidth + 2 * Theme.spacingM
    implicitHeight: row.implicitHeight + Theme.spacingS
    radius: height / 2
    color: Theme.faded(tint, 0.12)

    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.description: tooltip

    HoverHandler { id: hover }
    ToolTip.text: badge.tooltip
    ToolTip.visible: hover.hovered && badge.tooltip.length > 0
    ToolTip.delay: 500

    Row {
        id: row
        anchors.centerIn: parent
        spacing: Theme.spacingXS
        SymbolIcon {
            visible: badge.symbol.length > 0
            name: badge.symbol
            color: badge.tint
            size: Theme.symbolXS
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            textFormat: Text.PlainText
            text: badge.text
            Accessible.ignored: true
            font.family: Theme.caption.family
            font.pixelSize: Theme.caption.pixelSize
            font.weight: Font.Medium
            color: badge.tint
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
