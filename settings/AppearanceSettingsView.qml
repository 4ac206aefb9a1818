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

    // The description of the choice whose raw value is `value`.
    function describe(choices: var, value: string): string {
        for (const choice of choices) {
            if (choice.rawValue === value)
                return choice.description
        }
        return ""
    }

    title: "Appearance"
    subtitle: "Customize how Kivora looks and feels"
    icon: "paintbrush.fill"

    SettingsSection {
        title: "Menu Bar"

        SettingsCard {
            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.spacingS

                Text {
                    text: "Icon Style"
                    font.family: Theme.body.family
                    font.pixelSize: Theme.body.pixelSize
                    font.weight: Font.Medium
                    color: Theme.primaryText
                }
                SegmentedPicker {
                    objectName: "iconStylePicker"
                    Layout.fillWidth: true
                    choices: page.iconStyles
                    value: SettingsManager.menuBarIconStyle
                    onActivated: rawValue => SettingsManager.menuBarIconStyle = rawValue
                }
                Text {
                    objectName: "iconStyleDescription"
                    Layout.fillWidth: true
                    text: page.describe(page.iconStyles, SettingsManager.menuBarIconStyle)
                    font: Theme.subheadline
                    color: Theme.secondaryText
                    wrapMode: Text.WordWrap
                }
            }

            Divider { Layout.fillWidth: true }

            ToggleRow {
                objectName: "compactModeRow"
                title: "Compact Mode"
                description: "Show simplified menu bar with less detail"
                checked: SettingsManager.compactMode
                onToggled: value => SettingsManager.compactMode = value
            }
        }
    }

    SettingsSection {
        title: "Application"

        SettingsCard {
            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.spacingS

                Text {
                    text: "Appearance"
                    font.family: Theme.body.family
                    font.pixelSize: Theme.body.pixelSize
                    font.weight: Font.Medium
                    color: Theme.primaryText
                }
                SegmentedPicker {
                    objectName: "appearancePicker"
                    Layout.fillWidth: true
                    choices: page.appearances
                    value: SettingsManager.appAppearance
                    onActivated: rawValue => SettingsManager.appAppearance = rawValue
                }
                Text {
                    objectName: "appearanceDescription"
                    Layout.fillWidth: true
                    text: page.describe(page.appearances, SettingsManager.appAppearance)
                    font: Theme.subheadline
                    color: Theme.secondaryText
                    wrapMode: Text.WordWrap
                }
            }
        }
    }

    SettingsSection {
        title: "Menu Bar Information"

        SettingsCard {
            ToggleRow {
                objectName: "showEmailRow"
                title: "Show Profile Email"
                description: "Display email address in the menu bar"
                checked: SettingsManager.showProfileEmail
                onToggled: value => SettingsManager.showProfileEmail = value
            }

            Divider { Layout.fillWidth: true }

            ToggleRow {
                objectName: "showSSHKeyRow"
                title: "Show SSH Key Path"
                description: "Display SSH key information in the menu bar"
                checked: SettingsManager.showSSHKey
                onToggled: value => SettingsManager.showSSHKey = value
            }
        }
    }

    SettingsSection {
        title: "Preview"

        SettingsCard {
            PreviewView {
                objectName: "preview"
            }
        }
    }
}
