// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "Appearance" page of the settings window: icon style, light or dark appearance and
// what the menu shows, each written to the preferences at once, with a live preview.
SettingsContainer {
    id: page

    readonly property var iconStyles: SettingsManager.iconStyleChoices()
    readonly property var appearances: SettingsManager.appearanceChoices()

    title: qsTr("Appearance")
    subtitle: qsTr("Customize how Kivora looks and feels")
    icon: "paintbrush.fill"

    SettingsSection {
        title: qsTr("Menu Bar")

        SettingsCard {
            ChoiceField {
                label: qsTr("Icon Style")
                pickerName: "iconStylePicker"
                descriptionName: "iconStyleDescription"
                choices: page.iconStyles
                value: SettingsManager.menuBarIconStyle
                onActivated: rawValue => SettingsManager.menuBarIconStyle = rawValue
            }

            Divider { Layout.fillWidth: true }

            ToggleRow {
                objectName: "compactModeRow"
                title: qsTr("Compact Mode")
                description: qsTr("Show simplified menu bar with less detail")
                checked: SettingsManager.compactMode
                onToggled: value => SettingsManager.compactMode = value
            }
        }
    }

    SettingsSection {
        title: qsTr("Application")

        SettingsCard {
            ChoiceField {
                label: qsTr("Appearance")
                pickerName: "appearancePicker"
                descriptionName: "appearanceDescription"
                choices: page.appearances
                value: SettingsManager.appAppearance
                onActivated: rawValue => SettingsManager.appAppearance = rawValue
            }
        }
    }

    SettingsSection {
        title: qsTr("Menu Bar Information")

        SettingsCard {
            ToggleRow {
                objectName: "showEmailRow"
                title: qsTr("Show Profile Email")
                description: qsTr("Display email address in the menu bar")
                checked: SettingsManager.showProfileEmail
                onToggled: value => SettingsManager.showProfileEmail = value
            }

            Divider { Layout.fillWidth: true }

            ToggleRow {
                objectName: "showSSHKeyRow"
                title: qsTr("Show SSH Key Path")
                description: qsTr("Display SSH key information in the menu bar")
                checked: SettingsManager.showSSHKey
                onToggled: value => SettingsManager.showSSHKey = value
            }
        }
    }

    SettingsSection {
        title: qsTr("Preview")

        SettingsCard {
            PreviewView {
                objectName: "preview"
            }
        }
    }
}
