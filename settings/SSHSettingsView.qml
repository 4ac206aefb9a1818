// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "SSH" page of the settings window: the SSH features to come. It reads no state: the
// detected-key count is a fixed "0" until key management lands here.
SettingsContainer {
    title: qsTr("SSH")
    subtitle: qsTr("Manage SSH keys and connections")
    icon: "key.fill"

    SettingsSection {
        title: qsTr("SSH Key Management")

        SettingsCard {
            FeatureRow {
                objectName: "feature:Key Scanner"
                symbol: "key.horizontal.fill"
                tint: Theme.purple
                title: qsTr("Key Scanner")
                description: qsTr("Automatically detect SSH keys in ~/.ssh")
                comingSoon: true
            }
            Divider { Layout.fillWidth: true }
            FeatureRow {
                objectName: "feature:Key Generator"
                symbol: "plus.circle.fill"
                tint: Theme.green
                title: qsTr("Key Generator")
                description: qsTr("Generate new SSH keys directly from Kivora")
                comingSoon: true
            }
            Divider { Layout.fillWidth: true }
            FeatureRow {
                objectName: "feature:Connection Testing"
                symbol: "antenna.radiowaves.left.and.right"
                tint: Theme.blue
                title: qsTr("Connection Testing")
                description: qsTr("Test SSH connections for each key")
                comingSoon: true
            }
        }
    }

    SettingsSection {
        title: qsTr("Current Keys")

        SettingsCard {
            ValueRow {
                objectName: "detectedKeysRow"
                label: qsTr("Detected Keys")
                value: "0"
            }
            ParagraphText {
                text: qsTr("No SSH keys have been detected yet. Use the Profiles section to scan for keys.")
                secondary: true
            }
        }
    }

    SettingsSection {
        title: qsTr("About")

        SettingsCard {
            ParagraphText {
                text: qsTr("SSH key management allows you to scan, generate, and test SSH keys associated with your profiles.")
            }
            ParagraphText {
                text: qsTr("This feature will be available in a future update.")
                secondary: true
            }
        }
    }
}
