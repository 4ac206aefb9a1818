// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "Sync" page of the settings window: profile sync to come. Profiles stay on this
// machine, so the status rows are fixed.
SettingsContainer {
    title: qsTr("Sync")
    subtitle: qsTr("Keep your profiles synchronized across devices")
    icon: "arrow.triangle.2.circlepath"

    SettingsSection {
        title: qsTr("iCloud Sync")

        SettingsCard {
            FeatureRow {
                objectName: "feature:iCloud Sync"
                symbol: "icloud.fill"
                tint: Theme.blue
                title: qsTr("iCloud Sync")
                description: qsTr("Sync profiles automatically across your Macs")
                comingSoon: true
            }
        }
    }

    SettingsSection {
        title: qsTr("Current Status")

        SettingsCard {
            ValueRow {
                objectName: "syncStatusRow"
                label: qsTr("Sync Status")
                value: qsTr("Local Only")
            }
            Divider { Layout.fillWidth: true }
            ValueRow {
                objectName: "lastSyncRow"
                label: qsTr("Last Sync")
                value: qsTr("Never")
            }
        }
    }

    SettingsSection {
        title: qsTr("About")

        SettingsCard {
            ParagraphText {
                text: qsTr("iCloud sync allows you to keep your profiles and settings synchronized across all your Macs signed into the same iCloud account.")
            }
            ParagraphText {
                text: qsTr("This feature will be available in a future update.")
                secondary: true
            }
        }
    }
}
