// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// One identity line of the active-profile card: a symbol and a text.
Row {
    id: line

    property string symbol
    property string text

    spacing: Theme.spacingXS
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    SymbolIcon {
        name: line.symbol
        color: Theme.secondaryText
        size: Theme.symbolXS
        anchors.verticalCenter: parent.verticalCenter
    }
    Text {
        textFormat: Text.PlainText
        width: Math.max(0, line.width - Theme.symbolXS - line.spacing)
        text: line.text
        font: Theme.subheadline
        color: Theme.secondaryText
        elide: Text.ElideMiddle
        anchors.verticalCenter: parent.verticalCenter
    }
}
