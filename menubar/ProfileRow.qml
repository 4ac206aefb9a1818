// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import Kivora

// One profile in the popover: status dot, name and identity, a brief "Switched" mark after a
// switch and, under the pointer or while the row has the keyboard focus, the terminal, edit
// and delete buttons. A click switches; so do Space and Return, but only while the row has
// the focus, which its focus ring then shows. The Menu key or Shift+F10 (or the right mouse
// button) opens the row's actions as a menu. A screen reader hears the name, the identity
// line and whether the profile is the active one.
Item {
    id: row

    property string profileName
    property string identity
    property bool active: false
    property bool justSwitched: false
    readonly property bool isHovered: hover.hovered
    // The list's keyboard walker; rows without one are Tab stops of their own.
    property RowNavigator navigator: null

    // For RowNavigator: this is a row, and the active one is where the Tab chain enters.
    readonly property bool navigable: true
    readonly property bool preferredStop: active

    readonly property var actions: [
        { name: "terminal", symbol: "terminal", tooltip: qsTr("Open Terminal") },
        { name: "edit", symbol: "pencil", tooltip: qsTr("Edit") },
        { name: "delete", symbol: "trash", tooltip: qsTr("Delete"), destructive: true }
    ]

    // The row's actions, wired by the popover.
    signal switchRequested()
    signal openTerminalRequested()
    signal editRequested()
    signal deleteRequested()

    function trigger(name: string) {
        if (name === "terminal")
            row.openTerminalRequested()
        else if (name === "edit")
            row.editRequested()
        else
            row.deleteRequested()
    }

    function openMenu(atKeyboard: bool) {
        const window = row.Window.window
        const menu = menuComponent.createObject(window ? window.contentItem : row,
                                                { origin: row }) as RowActionsMenu
        if (atKeyboard)
            menu.openAt(row)
        else
            menu.popup()
    }

    implicitHeight: layout.implicitHeight + 2 * Theme.spacingM
    activeFocusOnTab: navigator ? navigator.tabStop === row : true

    Accessible.role: Accessible.RadioButton
    Accessible.name: profileName
    Accessible.description: identity + (active ? ", " + qsTr("Active profile") : "")
                            + (justSwitched ? ", " + qsTr("Switched") : "")
    Accessible.checkable: true
    Accessible.checked: active
    Accessible.focusable: true
    Accessible.onPressAction: row.switchRequested()

    Keys.onPressed: event => {
        if (row.navigator && row.navigator.handleKey(row, event)) {
            event.accepted = true
        } else if (event.key === Qt.Key_Space || event.key === Qt.Key_Return
                   || event.key === Qt.Key_Enter) {
            event.accepted = true
            row.switchRequested()
        } else if (event.key === Qt.Key_Menu
                   || (event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier))) {
            event.accepted = true
            row.openMenu(true)
        }
    }

    onActiveFocusChanged: {
        if (activeFocus && navigator)
            navigator.focused(row)
    }
    onActiveChanged: navigator?.changed()
    onVisibleChanged: navigator?.changed()
    Component.onCompleted: navigator?.changed()
    Component.onDestruction: navigator?.changed()

    Component {
        id: menuComponent
        RowActionsMenu {
            actions: row.actions
            onTriggered: name => row.trigger(name)
        }
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.rowRadius
        color: row.isHovered ? Theme.controlBackground : "transparent"
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration; easing.type: Easing.InOutQuad } }

        FocusRing {
            shown: row.activeFocus
            inset: true
            itemRadius: Theme.rowRadius
        }
    }

    HoverHandler { id: hover }
    TapHandler { onTapped: row.switchRequested() }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: row.openMenu(false)
    }

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
            markOutlineColor: Theme.secondaryText
        }

        FadeRow {
            objectName: "switchedLabel"
            spacing: Theme.spacingXS
            shown: row.justSwitched
            duration: Theme.switchedDuration
            easing: Easing.OutCubic
            // Said by screen readers when it appears.
            Accessible.role: Accessible.Notification
            Accessible.name: qsTr("Switched to %1").arg(row.profileName)
            SymbolIcon {
                name: "checkmark"
                color: Theme.green
                size: Theme.symbolXS
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                textFormat: Text.PlainText
                text: qsTr("Switched")
                font: Theme.caption
                color: Theme.green
                anchors.verticalCenter: parent.verticalCenter
                Accessible.ignored: true
            }
        }

        HoverActions {
            shown: row.isHovered || row.activeFocus
            actions: row.actions
            onTriggered: name => row.trigger(name)
        }
    }
}
