// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A bordered push button with an optional leading symbol and spinner. `prominent` fills it
// with the accent colour (the default action); `destructive` draws its label in red. It takes
// the keyboard focus like any button and shows it with the focus ring; Space and Return press
// it while it has the focus.
Button {
    id: button

    property string symbol
    property bool prominent: false
    property bool destructive: false
    // Shows a spinner before the label.
    property bool busy: false

    readonly property color foreground: prominent ? Theme.accentText
                                                  : destructive ? Theme.red : Theme.primaryText

    hoverEnabled: true
    font: Theme.body
    leftPadding: Theme.spacingXL
    rightPadding: Theme.spacingXL
    topPadding: Theme.spacingS
    bottomPadding: Theme.spacingS
    opacity: enabled ? 1 : 0.45
    Accessible.name: text
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: if (button.enabled) button.clicked()

    // Return presses the focused button; it is not passed on to the window's default button.
    Keys.onReturnPressed: event => button.pressByKey(event)
    Keys.onEnterPressed: event => button.pressByKey(event)

    function pressByKey(event: KeyEvent) {
        event.accepted = true
        if (button.enabled) {
            button.clicked()
        }
    }

    contentItem: Item {
        implicitWidth: children[0].implicitWidth
        implicitHeight: children[0].implicitHeight

        Row {
            anchors.centerIn: parent
            spacing: Theme.spacingS

            Spinner {
                objectName: "spinner"
                visible: button.busy
                color: button.foreground
                size: Theme.symbolM
                anchors.verticalCenter: parent.verticalCenter
            }
            SymbolIcon {
                visible: button.symbol.length > 0
                name: button.symbol
                color: button.foreground
                size: Theme.symbolL
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                textFormat: Text.PlainText
                text: button.text
                font: button.font
                color: button.foreground
                anchors.verticalCenter: parent.verticalCenter
            }
        }
    }

    background: Rectangle {
        implicitWidth: Theme.buttonWidth
        implicitHeight: Theme.controlHeight
        radius: Theme.controlRadius
        color: button.prominent
               ? (button.pressed ? Qt.darker(Theme.accentFill, 1.15) : Theme.accentFill)
               : (button.pressed ? Theme.controlBackground
                                 : button.hovered && button.enabled
                                   ? Theme.faded(Theme.controlBackground, 0.6)
                                   : Theme.cardBackground)
        border.width: button.prominent ? 0 : 1
        border.color: Theme.border
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration } }

        FocusRing {
            shown: button.visualFocus
            itemRadius: Theme.controlRadius
        }
    }
}
