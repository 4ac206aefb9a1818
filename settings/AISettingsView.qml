// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "AI" page of the settings window: what the per-profile AI context is, the providers
// it will support and the first profiles. It only informs: every status reads
// "Not configured", whatever a profile holds, until the feature arrives.
SettingsContainer {
    id: page

    // Rows are shown for this many profiles; the rest are counted in a "+ N more" line.
    readonly property int shownProfiles: 3
    readonly property int profileCount: Profiles.count

    title: qsTr("AI")
    subtitle: qsTr("Configure AI context per profile")
    icon: "sparkles"

    SettingsSection {
        title: qsTr("AI Providers")

        SettingsCard {
            objectName: "providersCard"

            Repeater {
                model: AIProviderCatalogue.rows()
                delegate: ColumnLayout {
                    id: provider

                    required property var modelData
                    required property int index

                    Layout.fillWidth: true
                    spacing: Theme.spacingL

                    Divider {
                        Layout.fillWidth: true
                        visible: provider.index > 0
                    }
                    ProviderRow {
                        objectName: "providerRow:" + provider.modelData.name
                        name: provider.modelData.name
                        models: provider.modelData.models
                        configured: false
                    }
                }
            }
        }
    }

    SettingsSection {
        title: qsTr("Profile Configuration")

        SettingsCard {
            ValueRow {
                objectName: "configuredProfilesRow"
                label: qsTr("Configured Profiles")
                value: String(page.profileCount)
                emphasized: true
            }

            Text {
                textFormat: Text.PlainText
                objectName: "noProfilesText"
                Layout.fillWidth: true
                visible: page.profileCount === 0
                text: qsTr("No profiles configured yet. Create profiles in the Profiles section.")
                font: Theme.body
                color: Theme.secondaryText
                wrapMode: Text.WordWrap
            }

            Repeater {
                model: Profiles
                delegate: RowLayout {
                    id: profileRow

                    required property int index
                    required property string name

                    objectName: "profileRow:" + name
                    visible: index < page.shownProfiles
                    Layout.fillWidth: true
                    spacing: Theme.spacingML

                    StatusDot {
                        on: true
                        tint: Theme.accent
                    }
                    Text {
                        textFormat: Text.PlainText
                        Layout.fillWidth: true
                        text: profileRow.name
                        font: Theme.body
                        color: Theme.primaryText
                        elide: Text.ElideRight
                    }
                    Text {
                        textFormat: Text.PlainText
                        text: qsTr("Not configured")
                        font: Theme.subheadline
                        color: Theme.secondaryText
                    }
                }
            }

            Text {
                textFormat: Text.PlainText
                objectName: "moreProfilesText"
                visible: page.profileCount > page.shownProfiles
                text: qsTr("+ %1 more").arg(page.profileCount - page.shownProfiles)
                font: Theme.subheadline
                color: Theme.secondaryText
            }
        }
    }

    SettingsSection {
        title: qsTr("About")

        SettingsCard {
            ParagraphText {
                text: qsTr("AI Context allows you to associate different AI models and API keys with each profile.")
            }
            ParagraphText {
                text: qsTr("When you switch profiles, your AI context switches automatically - perfect for using different API keys for work and personal projects.")
            }
            ParagraphText {
                text: qsTr("This feature will be available in a future update.")
                secondary: true
            }
        }
    }
}
