// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Window
import Kivora

// One profile on the profiles page: the active mark, the name and identity (a click
// activates), the folders and remotes that use it, and under the pointer or while the row has
// the keyboard focus the edit and delete buttons. Deleting asks first. From the keyboard the
// row is one of the page's rows (RowNavigator): Space and Return activate the profile, the
// Menu key or Shift+F10 offers edit and delete as a menu.
Item {
    id: row

    // The profile shown (a gitProfile).
    property var profile
    property bool isActive: false
    readonly property bool isHovered: hover.hovered
    property bool showDeleteConfirmation: false

    readonly property string profileName: profile ? profile.name : ""
    readonly property string identityLine: profile ? profile.gitName + " · " + profile.gitEmail : ""
    property RowNavigator navigator: null

    // For RowNavigator: this is a row, and the active one is where the Tab chain enters.
    readonly property bool navigable: true
    readonly property bool preferredStop: isActive

    readonly property var actions: [
        { name: "edit", symbol: "pencil", tooltip: qsTr("Edit profile") },
        { name: "delete", symbol: "trash", tooltip: qsTr("Delete profile"), destructive: true }
    ]
    readonly property bool hasKey: profile ? profile.sshKeyPath.length > 0 : false
    // The other profiles using the same key file, joined for a sentence; empty when none.
    property string keySharedWith

    signal activateRequested()
    signal editRequested()
    // Confirmed in the dialog; `deleteSSHKey` tells whether the key files go as well.
    signal deleteRequested(bool deleteSSHKey)

    implicitHeight: layout.implicitHeight + 2 * Theme.spacingML
    implicitWidth: layout.implicitWidth + 2 * Theme.spacingL
    activeFocusOnTab: navigator ? navigator.tabStop === row : true

    function trigger(name: string) {
        if (name === "edit")
            row.editRequested()
        else
            row.showDeleteConfirmation = true
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

    Accessible.role: Accessible.RadioButton
    Accessible.name: profileName
    Accessible.description: identityLine
                            + (rowRules.summary.length > 0 ? ", " + rowRules.summary : "")
                            + (isActive ? ", " + qsTr("Active profile") : "")
    Accessible.checkable: true
    Accessible.checked: isActive
    Accessible.focusable: true
    Accessible.onPressAction: row.activateRequested()

    Keys.onPressed: event => {
        if (row.navigator && row.navigator.handleKey(row, event)) {
            event.accepted = true
        } else if (event.key === Qt.Key_Space || event.key === Qt.Key_Return
                   || event.key === Qt.Key_Enter) {
            event.accepted = true
            row.activateRequested()
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
    onIsActiveChanged: navigator?.changed()
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

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: row.openMenu(false)
    }

    onShowDeleteConfirmationChanged: {
        if (showDeleteConfirmation) {
            confirmation.open()
        } else {
            confirmation.close()
        }
    }

    // The profile's rules, shown under its identity line and read again when they change.
    ProfileRuleList {
        id: rowRules
        manager: ProfileManager
        profileId: row.profile ? row.profile.id : ""
    }

    Rectangle {
        objectName: "rowBackground"
        anchors.fill: parent
        radius: Theme.cornerRadius
        color: Theme.cardBackground
        border.width: 1
        border.color: Theme.cardBorder
        opacity: row.isHovered ? 1 : 0.5
        Behavior on opacity { NumberAnimation { duration: Theme.hoverDuration; easing.type: Easing.InOutQuad } }
    }

    FocusRing {
        shown: row.activeFocus
        itemRadius: Theme.cornerRadius
    }

    HoverHandler { id: hover }

    RowLayout {
        id: layout
        anchors.fill: parent
        anchors.leftMargin: Theme.spacingL
        anchors.rightMargin: Theme.spacingL
        anchors.topMargin: Theme.spacingML
        anchors.bottomMargin: Theme.spacingML
        spacing: Theme.spacingL

        AbstractButton {
            id: activateButton
            objectName: "activateButton"
            Accessible.name: row.profileName
            Accessible.description: row.profile ? row.profile.gitName + " · " + row.profile.gitEmail : ""
            Accessible.onPressAction: activateButton.clicked()
            Layout.fillWidth: true
            // The row's own hover handler tracks the pointer, wherever it comes in; the row
            // itself takes the keyboard focus and speaks for the profile.
            hoverEnabled: false
            focusPolicy: Qt.NoFocus
            Accessible.ignored: true
            implicitHeight: contentItem.implicitHeight
            text: row.profileName
            onClicked: row.activateRequested()

            contentItem: ProfileIdentity {
                spacing: Theme.spacingL
                profileName: row.profileName
                identityLine: row.identityLine
                active: row.isActive
                nameFont: Theme.settingsRowTitle

                Text {
                    textFormat: Text.PlainText
                    objectName: "rulesText"
                    visible: rowRules.summary.length > 0
                    Layout.fillWidth: true
                    text: rowRules.summary
                    font: Theme.caption
                    color: Theme.tertiaryText
                    elide: Text.ElideRight
                }
            }
            background: Item {}
        }

        HoverActions {
            large: true
            shown: row.isHovered || row.activeFocus
            actions: row.actions
            onTriggered: name => row.trigger(name)
        }
    }

    DeleteProfileDialog {
        id: confirmation
        objectName: "deleteConfirmation"
        profileName: row.profileName
        hasKey: row.hasKey
        sharedWith: row.keySharedWith
        onClosed: {
            row.showDeleteConfirmation = false
            // Back to the row the dialog was asked from, when it is still there.
            if (row.navigator)
                row.navigator.focusRow(row)
        }
        onDeleteChosen: deleteSSHKey => row.deleteRequested(deleteSSHKey)
    }
}
