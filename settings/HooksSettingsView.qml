// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "Hooks" page of the settings window: the automation hooks to come, with examples.
SettingsContainer {
    title: "Hooks"
    subtitle: "Automate actions when switching profiles"
    icon: "terminal.fill"

    SettingsSection {
        title: "Automation Hooks"

        SettingsCard {
            FeatureRow {
                objectName: "feature:Profile Activation Hooks"
                symbol: "bolt.fill"
                tint: Theme.orange
                title: "Profile Activation Hooks"
                description: "Run scripts when a profile becomes active"
                comingSoon: true
            }
            Divider { Layout.fillWidth: true }
            FeatureRow {
                objectName: "feature:Profile Deactivation Hooks"
                symbol: "xmark.circle.fill"
                tint: Theme.red
                title: "Profile Deactivation Hooks"
                description: "Run scripts when switching away from a profile"
                comingSoon: true
            }
        }
    }

    SettingsSection {
        title: "Example Hooks"

        SettingsCard {
            InfoEntry {
                objectName: "entry:Connect VPN"
                title: "Connect VPN"
                description: "Automatically connect to work VPN when activating Work profile"
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Switch Slack Workspace"
                title: "Switch Slack Workspace"
                description: "Change Slack workspace based on profile"
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Set AWS Profile"
                title: "Set AWS Profile"
                description: "Configure AWS credentials for different profiles"
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Environment Variables"
                title: "Environment Variables"
                description: "Set custom environment variables per profile"
            }
        }
    }

    SettingsSection {
        title: "About"

        SettingsCard {
            ParagraphText {
                text: "Hooks allow you to run custom scripts automatically when activating or deactivating profiles."
            }
            ParagraphText {
                text: "This feature will be available in a future update."
                secondary: true
            }
        }
    }
}
