// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "Updates" page of the settings window: the updater's own settings, read from it and
// written to it at once, and a check on demand. The page stores nothing itself.
SettingsContainer {
    id: page

    // The check intervals offered, in seconds.
    readonly property var intervals: [
        { text: qsTr("Daily"), value: 86400 },
        { text: qsTr("Weekly"), value: 604800 },
        { text: qsTr("Monthly"), value: 2592000 }
    ]
    readonly property url sparkleUrl: "https://sparkle-project.org/"

    // Bumped now and then, so the relative time of the last check stays current.
    property int tick: 0

    function openLink(address: url) {
        Qt.openUrlExternally(address)
    }

    title: qsTr("Updates")
    subtitle: qsTr("Keep Kivora up to date")
    icon: "arrow.down.circle.fill"

    Timer {
        interval: 30000
        repeat: true
        running: page.visible
        onTriggered: page.tick++
    }

    SettingsSection {
        title: qsTr("Automatic Updates")

        SettingsCard {
            ToggleRow {
                objectName: "automaticUpdatesRow"
                title: qsTr("Automatic Updates")
                description: qsTr("Automatically check for updates on app launch")
                checked: Updater.automaticallyChecksForUpdates
                onToggled: value => Updater.automaticallyChecksForUpdates = value
            }

            Divider { Layout.fillWidth: true }

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.spacingL

                Text {
                    textFormat: Text.PlainText
                    Layout.fillWidth: true
                    text: qsTr("Check Frequency")
                    font: Theme.body
                    color: Theme.primaryText
                }
                Picker {
                    objectName: "frequencyPicker"
                    Layout.preferredWidth: Theme.narrowControlWidth
                    choices: page.intervals
                    value: Updater.updateCheckInterval
                    onPicked: seconds => Updater.updateCheckInterval = seconds
                }
            }
        }
    }

    SettingsSection {
        title: qsTr("Check for Updates")

        SettingsCard {
            ValueRow {
                objectName: "currentVersionRow"
                label: qsTr("Current Version")
                value: "1.0.0"
            }

            PushButton {
                objectName: "checkNowButton"
                text: qsTr("Check Now")
                onClicked: Updater.checkForUpdates()
            }

            ValueRow {
                objectName: "lastCheckedRow"
                visible: Updater.hasLastUpdateCheckDate
                label: qsTr("Last Checked")
                value: page.tick >= 0 && Updater.hasLastUpdateCheckDate
                       ? qsTr("%1 ago").arg(RelativeTime.describe(Updater.lastUpdateCheckDate))
                       : ""
            }
        }
    }

    SettingsSection {
        title: qsTr("About Sparkle")

        SettingsCard {
            ParagraphText {
                text: qsTr("Kivora uses Sparkle for updates. Sparkle is an open-source update framework for macOS apps.")
                secondary: true
            }
            LinkRow {
                objectName: "sparkleLink"
                text: qsTr("Learn more about Sparkle")
                url: page.sparkleUrl
                onClicked: page.openLink(url)
            }
        }
    }
}
