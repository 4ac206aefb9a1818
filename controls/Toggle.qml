// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// An on/off switch in the palette: accent track when on, a white knob sliding across. With a
// text, the text stands at the leading edge and the switch at the trailing edge; without
// one, the control is just the track (give it an `Accessible.name` then). Space toggles it;
// Return is left to the window's default button.
//
// `value` is the setting shown and `userToggled` the user's change: the owner writes the
// setting from it, and the switch always shows the setting, so a refused change springs back.
Switch {
    id: control

    property bool value: false

    signal userToggled(bool on)

    checked: value
    onToggled: {
        const wanted = checked
        checked = Qt.binding(() => control.value)
        control.userToggled(wanted)
    }

    hoverEnabled: true
    Accessible.name: text
    // Assistive technology toggles it as a click would: Qt 6.4's controls offer the actions
    // but do nothing on them.
    Accessible.onToggleAction: control.toggleByAssistant()
    Accessible.onPressAction: control.toggleByAssistant()

    function toggleByAssistant() {
        if (!control.enabled)
            return
        control.toggle()
        control.toggled()
    }
    font: Theme.body
    padding: 0
    spacing: text.length > 0 ? Theme.spacingL : 0
    implicitWidth: text.length > 0 ? implicitContentWidth + implicitIndicatorWidth + spacing
                                   : implicitIndicatorWidth
    implicitHeight: Math.max(implicitContentHeight, implicitIndicatorHeight)

    indicator: Rectangle {
        implicitWidth: Theme.switchWidth
        implicitHeight: Theme.switchHeight
        x: control.width - width - control.rightPadding
        y: control.topPadding + (control.availableHeight - height) / 2
        radius: height / 2
        color: control.checked ? Theme.accentFill : Theme.controlBackground
        border.width: 1
        border.color: control.checked ? Theme.accent : Theme.controlBorder
        opacity: control.enabled ? 1.0 : 0.5
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration } }

        FocusRing {
            shown: control.visualFocus
            itemRadius: parent.radius
        }

        Rectangle {
            readonly property int inset: (parent.height - height) / 2
            width: Theme.knobSize
            height: Theme.knobSize
            radius: height / 2
            y: inset
            x: control.checked ? parent.width - width - inset : inset
            color: "#ffffff"
            border.width: 1
            border.color: control.checked ? Theme.accentFill : Theme.controlBorder
            Behavior on x { NumberAnimation { duration: Theme.hoverDuration; easing.type: Easing.InOutQuad } }
        }
    }

    contentItem: Text {
        textFormat: Text.PlainText
        visible: control.text.length > 0
        rightPadding: control.text.length > 0 ? control.indicator.width + control.spacing : 0
        text: control.text
        font: control.font
        color: Theme.primaryText
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
}
