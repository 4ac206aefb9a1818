// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import QtQml.Models
import Kivora

// The "Profiles" page of the settings window: every profile of the profile manager, to
// activate, edit and delete, and the sheets that add profiles (the editor and the key scan).
// The sheets only return their result; this page edits the list and saves it.
SettingsContainer {
    id: page

    // Transient view state: lost when the page is left.
    property bool isAddingProfile: false
    // The profile whose editor is open (a gitProfile), or null.
    property var editingProfile: null
    property bool showScanSheet: false
    // Why key files were kept at the last deletion (empty when nothing was refused).
    property string keyDeletionMessage

    readonly property int profileCount: Profiles.count
    readonly property string countText: qsTr("%n profile(s)", "", profileCount)

    // The open sheets, for whoever needs to reach them (null when closed).
    readonly property Item editorSheet: editorInstance.object
                                        ? (editorInstance.object as SheetWindow).sheet : null
    readonly property Item scanSheet: scanInstance.object
                                      ? (scanInstance.object as SheetWindow).sheet : null

    title: qsTr("Profiles")
    subtitle: qsTr("Manage your git identities")
    icon: "person.2.fill"

    function activate(profile: var) {
        ProfileActions.activate(profile)
    }

    function deleteProfile(profile: var, deleteSSHKey: bool) {
        page.keyDeletionMessage = ProfileActions.deleteProfile(profile, deleteSSHKey)
        // The deleted row had the focus: the keyboard goes on from the active profile's row,
        // or from "Add Profile" when no profile is left.
        refocus.restart()
    }

    Timer {
        id: refocus
        interval: 0
        onTriggered: page.focusList()
    }

    function focusList() {
        if (!rowNavigator.focusPreferred())
            addButton.forceActiveFocus(Qt.TabFocusReason)
    }

    // What the editor returns: a new profile is appended as it is, an edited one replaces the
    // profile with its id (nothing happens when that profile is gone). Returns why it could
    // not be stored, or an empty text; the editor then stays open with the reason.
    function saveEditedProfile(profile: var): string {
        if (page.isAddingProfile) {
            ProfileActions.addProfile(profile)
        } else {
            ProfileActions.updateProfile(profile)
        }
        return ProfileActions.error
    }

    function closeEditor() {
        page.isAddingProfile = false
        page.editingProfile = null
    }

    function addScannedKeys(entries: var) {
        ProfileActions.addScannedKeys(entries)
    }

    Instantiator {
        id: editorInstance
        active: page.isAddingProfile || page.editingProfile !== null
        delegate: SheetWindow {
            title: editor.title
            owner: page.Window.window
            defaultButton: editor.defaultButton
            onDismissRequested: page.closeEditor()

            ProfileEditorSheet {
                id: editor
                objectName: "profileEditorSheet"
                profile: page.isAddingProfile ? ProfileActions.profileTemplate() : page.editingProfile
                onSaved: profile => editor.form.saveError = page.saveEditedProfile(profile)
                onDismissed: page.closeEditor()
            }
        }
    }

    Instantiator {
        id: scanInstance
        active: page.showScanSheet
        delegate: SheetWindow {
            title: qsTr("Scan SSH Keys")
            owner: page.Window.window
            defaultButton: keyScanSheet.defaultButton
            // Escape or the window's close button: what that means depends on the step.
            onDismissRequested: keyScanSheet.cancel()

            ScanSSHKeysSheet {
                id: keyScanSheet
                objectName: "scanSSHKeysSheet"
                onScanned: entries => page.addScannedKeys(entries)
                onDismissed: page.showScanSheet = false
            }
        }
    }

    ColumnLayout {
        id: profileListSection
        objectName: "profileListSection"
        Layout.fillWidth: true
        spacing: Theme.spacingXXL

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spacingML

            ColumnLayout {
                spacing: Theme.spacingXXS
                Text {
                    textFormat: Text.PlainText
                    text: qsTr("Your Profiles")
                    font: Theme.headline
                    color: Theme.primaryText
                }
                Text {
                    textFormat: Text.PlainText
                    objectName: "countText"
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                    text: page.countText
                    font: Theme.subheadline
                    color: Theme.secondaryText
                }
            }

            Item { Layout.fillWidth: true }

            PushButton {
                objectName: "scanButton"
                text: qsTr("Scan SSH Keys")
                symbol: "magnifyingglass"
                onClicked: page.showScanSheet = true
            }
            PushButton {
                id: addButton
                objectName: "addButton"
                text: qsTr("Add Profile")
                symbol: "plus"
                onClicked: page.isAddingProfile = true
            }
        }

        Text {
            textFormat: Text.PlainText
            objectName: "actionError"
            Layout.fillWidth: true
            visible: ProfileActions.error.length > 0
            text: ProfileActions.error
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
            font: Theme.subheadline
            color: Theme.red
            wrapMode: Text.WordWrap
        }

        Text {
            textFormat: Text.PlainText
            objectName: "keyDeletionMessage"
            Layout.fillWidth: true
            visible: page.keyDeletionMessage.length > 0
            text: page.keyDeletionMessage
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
            font: Theme.subheadline
            color: Theme.red
            wrapMode: Text.WordWrap
        }

        ColumnLayout {
            id: emptyState
            objectName: "emptyState"
            visible: page.profileCount === 0
            Layout.fillWidth: true
            Layout.topMargin: 2 * Theme.spacingPage
            spacing: Theme.spacingM

            SymbolIcon {
                Layout.alignment: Qt.AlignHCenter
                Layout.bottomMargin: Theme.spacingXS
                name: "person.2"
                color: Theme.secondaryText
                size: Theme.largeTitleSymbolSize
            }
            Text {
                textFormat: Text.PlainText
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                text: qsTr("No profiles yet")
                font: Theme.headline
                color: Theme.primaryText
            }
            Text {
                textFormat: Text.PlainText
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                text: qsTr("Add your first profile to get started")
                font: Theme.subheadline
                color: Theme.secondaryText
            }
        }

        RowNavigator {
            id: rowNavigator
            root: profileList
        }

        Column {
            id: profileList
            objectName: "profileList"
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Your Profiles")
            visible: page.profileCount > 0
            Layout.fillWidth: true
            spacing: Theme.spacingM

            Repeater {
                model: Profiles
                delegate: ProfileSettingsRow {
                    required property int index
                    required isActive
                    required profile

                    objectName: "profileRow:" + index
                    navigator: rowNavigator
                    width: profileList.width
                    // Read again whenever the list changes: another profile may take the key.
                    keySharedWith: {
                        ProfileManager.profiles
                        return ProfileActions.keySharedWith(profile)
                    }
                    onActivateRequested: page.activate(profile)
                    onEditRequested: page.editingProfile = profile
                    onDeleteRequested: deleteSSHKey => page.deleteProfile(profile, deleteSSHKey)
                }
            }
        }
    }
}
