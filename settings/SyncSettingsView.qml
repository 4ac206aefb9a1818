// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "Sync" page of the settings window: profile sync to come. Profiles stay on this
// machine, so the status rows are fixed.
SettingsContainer {
    title: "Sync"
    subtitle: "Keep your profiles synchronized across devices"
    icon: "arrow.triangle.2.circlepath"

    SettingsSection {
        title: "iCloud Sync"

        SettingsCard {
            FeatureRow {
                objectName: "feature:iCloud Sync"
                symbol: "icloud.fill"
                tint: Theme.blue
                title: "iCloud Sync"
                description: "Sync profiles automatically across your Macs"
                comingSoon: true
            }
        }
    }

    SettingsSection {
        title: "Current Status"

        SettingsCard {
            ValueRow {
                objectName: "syncStatusRow"
                label: "Sync Status"
                value: "Local Only"
            }
            Divider { Layout.fillWidth: true }
            ValueRow {
                objectName: "lastSyncRow"
                label: "Last Sync"
                value: "Never"
            }
        }
    }

    SettingsSection {
        title: "About"

        SettingsCard {
            ParagraphText {
                text: "iCloud sync allows you to keep your profiles and settings synchronized across all your Macs signed into the same iCloud account."
            }
            ParagraphText {
                text: "This feature will be available in a future update."
                secondary: true
            }
        }
    }
}
