// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A text field with a rounded border; `secure` masks what is typed and `symbol` puts a
// symbol at its leading edge (the search field's magnifying glass).
TextField {
    id: field

    property bool secure: false
    property string symbol

    echoMode: secure ? TextInput.Password : TextInput.Normal
    leftPadding: symbol.length > 0 ? Theme.spacingSheet + Theme.spacingXXS : Theme.spacingM
    rightPadding: Theme.spacingM
    topPadding: Theme.spacingS
    bottomPadding: Theme.spacingS
    font: Theme.body
    color: Theme.primaryText
    placeholderTextColor: Theme.tertiaryText
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    selectByMouse: true

    background: Rectangle {
        implicitWidth: Theme.controlWidth
        implicitHeight: Theme.controlHeight
        radius: Theme.controlRadius
        color: Theme.fieldBackground
        border.width: field.activeFocus ? 2 : 1
        border.color: field.activeFocus ? Theme.accent : Theme.border

        SymbolIcon {
            visible: field.symbol.length > 0
            anchors.left: parent.left
            anchors.leftMargin: Theme.spacingM
            anchors.verticalCenter: parent.verticalCenter
            name: field.symbol
            color: Theme.tertiaryText
            size: Theme.symbolL
        }
    }
}
