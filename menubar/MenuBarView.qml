// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Kivora

// The popover's content: setup banner, active profile, the profiles to switch between,
// the AI and sync status, and the application commands. The keyboard goes, with Tab, from the
// banner to the profile list (one stop: the arrow keys, Home and End move inside it) to the
// footer's buttons; Escape asks to close the popover.
Item {
    id: view

    // The profile switched to in the last 1.5 seconds (its id), for the rows' "Switched" mark.
    property string justSwitched: ""
    // The profile whose edit button was pressed last. Nothing in the popover shows it.
    property var editingProfile: null

    readonly property var profiles: Profiles
    readonly property bool compact: SettingsManager.compactMode
    readonly property real listMaximumHeight: compact ? 150 : 250

    signal dismissRequested()

    // Puts the keyboard focus on the active profile's row (the first row when none is active,
    // the first footer button when there are no profiles).
    function focusActiveRow() {
        if (!rowNavigator.focusPreferred())
            addProfileButton.forceActiveFocus(Qt.TabFocusReason)
    }

    Keys.onEscapePressed: view.dismissRequested()

    Timer {
        id: refocus
        interval: 0
        onTriggered: view.focusActiveRow()
    }

    implicitWidth: Theme.popoverWidth
    implicitHeight: column.implicitHeight + 2 * column.anchors.margins

    // Each switch schedules its own clearing: a second switch within 1.5 seconds replaces the
    // id at once, and the first switch's timer still clears it at its own time.
    Component {
        id: clearSwitchedTimer
        Timer {
            interval: 1500
            running: true
            onTriggered: {
                view.justSwitched = ""
                destroy()
            }
        }
    }

    // A sentence left from an earlier view's failure is not this view's.
    Component.onCompleted: Profiles.clearError()

    function switchTo(profileId: string) {
        if (Profiles.activate(profileId)) {
            justSwitched = profileId
            clearSwitchedTimer.createObject(view)
        }
    }

    function openSettings() {
        Windows.open("settings")
        view.dismissRequested()
    }

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: Theme.spacingL
        spacing: Theme.spacingML

        SetupBanner {
            objectName: "setupBanner"
            Layout.fillWidth: true
            visible: ProfileManager.needsProfileSetup
            onClicked: view.openSettings()
        }

        ActiveProfileCard {
            objectName: "activeProfileCard"
            Layout.fillWidth: true
            hasProfile: Profiles.hasActiveProfile
            profile: Profiles.activeProfile
            iconStyle: SettingsManager.menuBarIconStyle
            showEmail: SettingsManager.showProfileEmail
        }

        Divider { Layout.fillWidth: true }

        RowNavigator {
            id: rowNavigator
            root: profileColumn
        }

        ScrollView {
            id: profileScroll
            objectName: "profileList"
            Layout.fillWidth: true
            Layout.preferredHeight: Math.min(profileColumn.implicitHeight, view.listMaximumHeight)
            Layout.maximumHeight: view.listMaximumHeight
            contentWidth: availableWidth
            clip: true

            Column {
                id: profileColumn
                Accessible.role: Accessible.List
                Accessible.name: qsTr("Profiles")
                width: profileScroll.availableWidth
                spacing: Theme.spacingXXS
                topPadding: Theme.spacingXXS
                bottomPadding: Theme.spacingXXS

                Repeater {
                    model: Profiles
                    delegate: ProfileRow {
                        required property string profileId
                        required property string name
                        required property string gitName
                        required property string gitEmail
                        required property bool isActive

                        width: profileColumn.width
                        objectName: "profileRow:" + name
                        navigator: rowNavigator
                        profileName: name
                        identity: gitName + " · " + gitEmail
                        active: isActive
                        justSwitched: view.justSwitched === profileId
                        onSwitchRequested: view.switchTo(profileId)
                        onOpenTerminalRequested: Profiles.openTerminal(profileId)
                        onEditRequested: view.editingProfile = profileId
                        onDeleteRequested: {
                            // The deleted row may have had the keyboard: it goes on from the
                            // active profile's row. (Before the removal, which ends this row.)
                            refocus.restart()
                            Profiles.remove(profileId)
                        }
                    }
                }
            }
        }

        // Why the last switch or deletion did not go through, or why the profile file that
        // someone else changed cannot be read.
        Text {
            textFormat: Text.PlainText
            objectName: "actionError"
            Layout.fillWidth: true
            Layout.leftMargin: Theme.spacingM
            Layout.rightMargin: Theme.spacingM
            visible: Profiles.error.length > 0
            text: Profiles.error
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
            font: Theme.caption
            color: Theme.red
            wrapMode: Text.Wrap
        }

        Divider { Layout.fillWidth: true }

        ColumnLayout {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.spacingM
            Layout.rightMargin: Theme.spacingM
            spacing: Theme.spacingM

            StatusRow {
                Layout.fillWidth: true
                objectName: "aiStatus"
                label: qsTr("AI Context")
                showDot: AIContextManager.hasCurrentConfig && AIContextManager.currentConfig.isEnabled
                value: showDot ? AIContextManager.currentConfig.provider : qsTr("Not configured")
                valueColor: showDot ? Theme.secondaryText : Theme.tertiaryText
            }

            StatusRow {
                Layout.fillWidth: true
                objectName: "syncStatus"
                label: qsTr("iCloud Sync")
                showDot: true
                value: qsTr("Local only")
                valueColor: Theme.tertiaryText
            }
        }

        Divider { Layout.fillWidth: true }

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spacingXS

            PlainButton {
                id: addProfileButton
                objectName: "addProfileButton"
                text: qsTr("Add Profile")
                symbol: "plus"
                onClicked: view.openSettings()
            }
            Item { Layout.fillWidth: true }
            PlainButton {
                objectName: "settingsButton"
                text: qsTr("Settings")
                onClicked: view.openSettings()
            }
            PlainButton {
                objectName: "quitButton"
                text: qsTr("Quit")
                onClicked: Qt.quit()
            }
        }
    }
}
