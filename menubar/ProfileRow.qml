// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// One profile in the popover: status dot, name and identity, a brief "Switched" mark after a
// switch and, under the pointer, the terminal, edit and delete buttons. A click switches.
Item {
    id: row

    property string profileName
    property string identity
    property bool active: false
    property bool justSwitched: false
    readonly property bool isHovered: hover.hovered

    // The row's actions, wired by the popover.
    signal switchRequested()
    signal openTerminalRequested()
    signal editRequested()
    signal deleteRequested()

    implicitHeight: layout.implicitHeight + 2 * Theme.spacingM

    // A button to assistive technology: named after the profile, pressed to switch.
    Accessible.role: Accessible.Button
    Accessible.name: row.profileName
    Accessible.description: row.identity
    Accessible.onPressAction: row.switchRequested()

    Rectangle {
        anchors.fill: parent
        radius: Theme.rowRadius
        color: row.isHovered ? Theme.controlBackground : "transparent"
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration; easing.type: Easing.InOutQuad } }
    }

    HoverHandler { id: hover }
    TapHandler { onTapped: row.switchRequested() }

    RowLayout {
        id: layout
        anchors.fill: parent
        anchors.leftMargin: Theme.spacingML
        anchors.rightMargin: Theme.spacingML
        anchors.topMargin: Theme.spacingM
        anchors.bottomMargin: Theme.spacingM
        spacing: Theme.spacingML

        ProfileIdentity {
            Layout.fillWidth: true
            profileName: row.profileName
            identityLine: row.identity
            active: row.active
            markSize: Theme.rowDotSize
            markOutline: 1
            markOutlineColor: Theme.faded(Theme.secondaryText, 0.4)
        }

        FadeRow {
            objectName: "switchedLabel"
            spacing: Theme.spacingXS
            shown: row.justSwitched
            duration: Theme.switchedDuration
            easing: Easing.OutCubic
            SymbolIcon {
                name: "checkmark"
                color: Theme.green
                size: Theme.symbolXS
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                text: "Switched"
                font: Theme.caption
                color: Theme.green
                anchors.verticalCenter: parent.verticalCenter
            }
        }

        HoverActions {
            shown: row.isHovered
            actions: [
                { name: "terminal", symbol: "terminal", tooltip: "Open Terminal" },
                { name: "edit", symbol: "pencil", tooltip: "Edit" },
                { name: "delete", symbol: "trash", tooltip: "Delete", destructive: true }
            ]
            onTriggered: name => {
                if (name === "terminal")
                    row.openTerminalRequested()
                else if (name === "edit")
                    row.editRequested()
                else
                    row.deleteRequested()
            }
        }
    }
}
