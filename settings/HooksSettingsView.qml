// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "Hooks" page of the settings window: the automation hooks to come, with examples.
SettingsContainer {
    title: qsTr("Hooks")
    subtitle: qsTr("Automate actions when switching profiles")
    icon: "terminal.fill"

    SettingsSection {
        title: qsTr("Automation Hooks")

        SettingsCard {
            FeatureRow {
                objectName: "feature:Profile Activation Hooks"
                symbol: "bolt.fill"
                tint: Theme.orange
                title: qsTr("Profile Activation Hooks")
                description: qsTr("Run scripts when a profile becomes active")
                comingSoon: true
            }
            Divider { Layout.fillWidth: true }
            FeatureRow {
                objectName: "feature:Profile Deactivation Hooks"
                symbol: "xmark.circle.fill"
                tint: Theme.red
                title: qsTr("Profile Deactivation Hooks")
                description: qsTr("Run scripts when switching away from a profile")
                comingSoon: true
            }
        }
    }

    SettingsSection {
        title: qsTr("Example Hooks")

        SettingsCard {
            InfoEntry {
                objectName: "entry:Connect VPN"
                title: qsTr("Connect VPN")
                description: qsTr("Automatically connect to work VPN when activating Work profile")
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Switch Slack Workspace"
                title: qsTr("Switch Slack Workspace")
                description: qsTr("Change Slack workspace based on profile")
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Set AWS Profile"
                title: qsTr("Set AWS Profile")
                description: qsTr("Configure AWS credentials for different profiles")
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Environment Variables"
                title: qsTr("Environment Variables")
                description: qsTr("Set custom environment variables per profile")
            }
        }
    }

    SettingsSection {
        title: qsTr("About")

        SettingsCard {
            ParagraphText {
                text: qsTr("Hooks allow you to run custom scripts automatically when activating or deactivating profiles.")
            }
            ParagraphText {
                text: qsTr("This feature will be available in a future update.")
                secondary: true
            }
        }
    }
}
