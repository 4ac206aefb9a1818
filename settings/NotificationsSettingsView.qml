// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "Notifications" page of the settings window: the alerts to come, without controls.
SettingsContainer {
    title: "Notifications"
    subtitle: "Configure alerts and warnings"
    icon: "bell.fill"

    SettingsSection {
        title: "Notifications"

        SettingsCard {
            InfoEntry {
                objectName: "entry:Profile Switch Notifications"
                title: "Profile Switch Notifications"
                description: "Get notified when you switch profiles"
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Warning on Wrong Identity"
                title: "Warning on Wrong Identity"
                description: "Alert when committing with a different identity than expected"
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Machine Change Detection"
                title: "Machine Change Detection"
                description: "Notify when you switch machines and profile might need updating"
            }
        }
    }

    SettingsSection {
        title: "About"

        SettingsCard {
            ParagraphText {
                text: "Notification features allow you to stay aware of your git identity across different contexts."
            }
            ParagraphText {
                text: "These features are coming soon in a future update."
                secondary: true
            }
        }
    }
}
