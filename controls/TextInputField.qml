// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A text field with a rounded border; `secure` masks what is typed and `symbol` puts a
// symbol at its leading edge (the search field's magnifying glass). A screen reader calls it
// by its `label`, else by its placeholder. The focused field has the focus ring.
TextField {
    id: field

    property bool secure: false
    property string symbol
    property string label

    Accessible.name: label.length > 0 ? label : placeholderText
    Accessible.passwordEdit: secure

    echoMode: secure ? TextInput.Password : TextInput.Normal
    leftPadding: symbol.length > 0 ? Theme.spacingSheet + Theme.spacingXXS : Theme.spacingM
    rightPadding: Theme.spacingM
    topPadding: Theme.spacingS
    bottomPadding: Theme.spacingS
    font: Theme.body
    color: Theme.primaryText
    placeholderTextColor: Theme.tertiaryText
    selectionColor: Theme.accentFill
    selectedTextColor: Theme.accentText
    selectByMouse: true

    background: Rectangle {
        implicitWidth: Theme.controlWidth
        implicitHeight: Theme.controlHeight
        radius: Theme.controlRadius
        color: Theme.fieldBackground
        border.width: 1
        border.color: Theme.controlBorder

        FocusRing {
            shown: field.activeFocus
            itemRadius: Theme.controlRadius
        }

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
