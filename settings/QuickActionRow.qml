// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Kivora

// A quick action in the settings sidebar: an icon and a title; a destructive one is red.
AbstractButton {
    id: row

    property string title
    property string symbol
    property bool destructive: false

    implicitHeight: Theme.sidebarRowHeight
    hoverEnabled: true
    text: title

    // Pressed through assistive technology as by a click: Qt 6.4's controls offer the press
    // action but do nothing on it.
    Accessible.onPressAction: row.clicked()

    background: Rectangle {
        radius: Theme.rowRadius
        color: row.hovered || row.visualFocus ? Theme.faded(Theme.controlBackground, 0.8)
                                              : "transparent"
    }

    contentItem: RowLayout {
        spacing: Theme.spacingML

        SymbolIcon {
            Layout.leftMargin: Theme.spacingML
            name: row.symbol
            color: row.destructive ? Theme.red : Theme.secondaryText
            size: Theme.symbolXL
        }
        Text {
            Layout.fillWidth: true
            Layout.rightMargin: Theme.spacingML
            text: row.title
            font: Theme.body
            color: row.destructive ? Theme.red : Theme.primaryText
        }
    }
}
