// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// The page of the selected tab; each page is its own file.
Loader {
    id: page

    property int tab: -1

    sourceComponent: {
        switch (tab) {
        case SettingsTab.Profiles: return profiles
        case SettingsTab.AI: return ai
        case SettingsTab.SSH: return ssh
        case SettingsTab.Appearance: return appearance
        case SettingsTab.Hooks: return hooks
        case SettingsTab.Notifications: return notifications
        case SettingsTab.Sync: return sync
        case SettingsTab.About: return about
        case SettingsTab.Updates: return updates
        default: return none
        }
    }

    Component { id: profiles; ProfilesSettingsView {} }
    Component { id: ai; AISettingsView {} }
    Component { id: ssh; SSHSettingsView {} }
    Component { id: appearance; AppearanceSettingsView {} }
    Component { id: hooks; HooksSettingsView {} }
    Component { id: notifications; NotificationsSettingsView {} }
    Component { id: sync; SyncSettingsView {} }
    Component { id: about; AboutSettingsView {} }
    Component { id: updates; UpdatesSettingsView {} }
    Component { id: none; NoPageView {} }
}
