// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Kivora

// One profile on the profiles page: the active mark, the name and identity (a click
// activates), the folders and remotes that use it, and under the pointer the edit and delete
// buttons. Deleting asks first.
Item {
    id: row

    // The profile shown (a gitProfile).
    property var profile
    property bool isActive: false
    readonly property bool isHovered: hover.hovered
    property bool showDeleteConfirmation: false

    readonly property string profileName: profile ? profile.name : ""
    readonly property bool hasKey: profile ? profile.sshKeyPath.length > 0 : false
    // The other profiles using the same key file, joined for a sentence; empty when none.
    property string keySharedWith

    signal activateRequested()
    signal editRequested()
    // Confirmed in the dialog; `deleteSSHKey` tells whether the key files go as well.
    signal deleteRequested(bool deleteSSHKey)

    implicitHeight: layout.implicitHeight + 2 * Theme.spacingML
    implicitWidth: layout.implicitWidth + 2 * Theme.spacingL

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
            // The row's own hover handler tracks the pointer, wherever it comes in.
            hoverEnabled: false
            implicitHeight: contentItem.implicitHeight
            text: row.profileName
            onClicked: row.activateRequested()

            contentItem: ProfileIdentity {
                spacing: Theme.spacingL
                profileName: row.profileName
                identityLine: row.profile ? row.profile.gitName + " · " + row.profile.gitEmail : ""
                active: row.isActive
                nameFont: Theme.settingsRowTitle

                Text {
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
            shown: row.isHovered
            actions: [
                { name: "edit", symbol: "pencil", tooltip: "Edit profile" },
                { name: "delete", symbol: "trash", tooltip: "Delete profile", destructive: true }
            ]
            onTriggered: name => {
                if (name === "edit")
                    row.editRequested()
                else
                    row.showDeleteConfirmation = true
            }
        }
    }

    DeleteProfileDialog {
        id: confirmation
        objectName: "deleteConfirmation"
        profileName: row.profileName
        hasKey: row.hasKey
        sharedWith: row.keySharedWith
        onClosed: row.showDeleteConfirmation = false
        onDeleteChosen: deleteSSHKey => row.deleteRequested(deleteSSHKey)
    }
}
