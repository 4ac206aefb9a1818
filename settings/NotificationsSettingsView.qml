// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "Notifications" page of the settings window: the alerts to come, without controls.
SettingsContainer {
    title: qsTr("Notifications")
    subtitle: qsTr("Configure alerts and warnings")
    icon: "bell.fill"

    SettingsSection {
        title: qsTr("Notifications")

        SettingsCard {
            InfoEntry {
                objectName: "entry:Profile Switch Notifications"
                title: qsTr("Profile Switch Notifications")
                description: qsTr("Get notified when you switch profiles")
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Warning on Wrong Identity"
                title: qsTr("Warning on Wrong Identity")
                description: qsTr("Alert when committing with a different identity than expected")
            }
            Divider { Layout.fillWidth: true }
            InfoEntry {
                objectName: "entry:Machine Change Detection"
                title: qsTr("Machine Change Detection")
                description: qsTr("Notify when you switch machines and profile might need updating")
            }
        }
    }

    SettingsSection {
        title: qsTr("About")

        SettingsCard {
            ParagraphText {
                text: qsTr("Notification features allow you to stay aware of your git identity across different contexts.")
            }
            ParagraphText {
                text: qsTr("These features are coming soon in a future update.")
                secondary: true
            }
        }
    }
}
