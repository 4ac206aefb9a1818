// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Kivora

// A quick action in the settings sidebar: an icon and a title; a destructive one is red.
// From the keyboard it is one of the sidebar's rows (RowNavigator): Space and Return run it.
AbstractButton {
    id: row

    property string title
    property string symbol
    property bool destructive: false
    property RowNavigator navigator: null

    // For RowNavigator: this is a row.
    readonly property bool navigable: true
    readonly property bool preferredStop: false

    implicitHeight: Theme.sidebarRowHeight
    hoverEnabled: true
    text: title
    focusPolicy: !navigator || navigator.tabStop === row ? Qt.TabFocus : Qt.NoFocus
    Accessible.name: title
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: row.clicked()

    Keys.onPressed: event => {
        if (row.navigator && row.navigator.handleKey(row, event)) {
            event.accepted = true
        } else if (event.key === Qt.Key_Space || event.key === Qt.Key_Return
                   || event.key === Qt.Key_Enter) {
            event.accepted = true
            row.clicked()
        }
    }

    onActiveFocusChanged: {
        if (activeFocus && navigator)
            navigator.focused(row)
    }
    onVisibleChanged: navigator?.changed()
    Component.onCompleted: navigator?.changed()
    Component.onDestruction: navigator?.changed()

    background: Rectangle {
        radius: Theme.rowRadius
        color: row.hovered ? Theme.faded(Theme.controlBackground, 0.8) : "transparent"

        FocusRing {
            shown: row.activeFocus
            inset: true
            itemRadius: Theme.rowRadius
        }
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
            textFormat: Text.PlainText
            Layout.fillWidth: true
            Layout.rightMargin: Theme.spacingML
            text: row.title
            Accessible.ignored: true
            font: Theme.body
            color: row.destructive ? Theme.red : Theme.primaryText
        }
    }
}
