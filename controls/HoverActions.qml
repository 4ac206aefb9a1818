// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// The symbol buttons a profile row shows under the pointer. `actions` lists them in order,
// each {name, symbol, tooltip, destructive}; the button of "edit" is found as "editButton".
// `large` gives the settings page's bigger buttons on tinted backgrounds. `triggered` tells
// which was pressed. The buttons are not stops of the Tab chain: the keyboard reaches the same
// actions through the row's menu (RowActionsMenu).
FadeRow {
    id: row

    property var actions: []
    property bool large: false

    signal triggered(string name)

    objectName: "hoverActions"
    spacing: large ? Theme.spacingS : Theme.spacingXS

    Repeater {
        model: row.actions
        delegate: SymbolButton {
            required property var modelData

            objectName: modelData.name + "Button"
            focusPolicy: Qt.NoFocus
            size: row.large ? Theme.rowButtonSize : Theme.iconButtonSize
            radius: row.large ? Theme.rowRadius : Theme.smallRadius
            symbolSize: row.large ? Theme.subheadline.pixelSize + 1 : Theme.symbolM
            fillOpacity: row.large ? 0.6 : 0.4
            symbol: modelData.symbol
            tooltip: modelData.tooltip
            foreground: modelData.destructive ? Theme.red : Theme.secondaryText
            fill: row.large && modelData.destructive ? Theme.faded(Theme.red, 0.12)
                                                     : Theme.quaternaryText
            onClicked: row.triggered(modelData.name)
        }
    }
}
