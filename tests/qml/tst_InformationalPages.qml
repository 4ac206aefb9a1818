// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The SSH, Hooks, Notifications and Sync pages: their texts in order, and that nothing on
// them changes a preference or a file.
Item {
    width: 1100
    height: 1300

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "InformationalPages"
        when: windowShown

        PageReader {
            id: reader
            testCase: testCase
        }

        Component { id: sshPage; SSHSettingsView { width: 1100; height: 1300 } }
        Component { id: hooksPage; HooksSettingsView { width: 1100; height: 1300 } }
        Component { id: notificationsPage; NotificationsSettingsView { width: 1100; height: 1300 } }
        Component { id: syncPage; SyncSettingsView { width: 1100; height: 1300 } }
        Component { id: aboutPage; AboutSettingsView { width: 1100; height: 1300 } }

        function makePage(component) {
            return createTemporaryObject(component, stage)
        }

        function test_ssh() {
            const page = makePage(sshPage)
            reader.checkHeader(page, "SSH", "Manage SSH keys and connections", "key.fill")
            reader.compareInOrder(page, ["SSH Key Management", "Key Scanner", "Key Generator",
                                  "Connection Testing", "Current Keys", "Detected Keys", "0",
                                  "No SSH keys have been detected yet. Use the Profiles section to scan for keys.",
                                  "About",
                                  "SSH key management allows you to scan, generate, and test SSH keys associated with your profiles.",
                                  "This feature will be available in a future update."])
            reader.checkFeature(page, "Key Scanner", "key.horizontal.fill", Theme.purple,
                         "Automatically detect SSH keys in ~/.ssh", true)
            reader.checkFeature(page, "Key Generator", "plus.circle.fill", Theme.green,
                         "Generate new SSH keys directly from Kivora", true)
            reader.checkFeature(page, "Connection Testing", "antenna.radiowaves.left.and.right",
                         Theme.blue, "Test SSH connections for each key", true)
        }

        function test_sshCountStaysZeroWhateverTheProfilesHold() {
            // Profiles with SSH keys, as a scan would have made them.
            Fixture.arrangeForTransfer()
            const page = makePage(sshPage)
            const row = findChild(page, "detectedKeysRow")
            compare(row.label, "Detected Keys")
            compare(findChild(row, "value").text, "0")
        }

        function test_hooks() {
            const page = makePage(hooksPage)
            reader.checkHeader(page, "Hooks", "Automate actions when switching profiles", "terminal.fill")
            reader.compareInOrder(page, ["Automation Hooks", "Profile Activation Hooks",
                                  "Profile Deactivation Hooks", "Example Hooks",
                                  "Connect VPN",
                                  "Automatically connect to work VPN when activating Work profile",
                                  "Switch Slack Workspace", "Change Slack workspace based on profile",
                                  "Set AWS Profile", "Configure AWS credentials for different profiles",
                                  "Environment Variables", "Set custom environment variables per profile",
                                  "About",
                                  "Hooks allow you to run custom scripts automatically when activating or deactivating profiles.",
                                  "This feature will be available in a future update."])
            reader.checkFeature(page, "Profile Activation Hooks", "bolt.fill", Theme.orange,
                         "Run scripts when a profile becomes active", true)
            reader.checkFeature(page, "Profile Deactivation Hooks", "xmark.circle.fill", Theme.red,
                         "Run scripts when switching away from a profile", true)
        }

        function test_notifications() {
            const page = makePage(notificationsPage)
            reader.checkHeader(page, "Notifications", "Configure alerts and warnings", "bell.fill")
            reader.compareInOrder(page, ["Notifications",
                                  "Profile Switch Notifications", "Get notified when you switch profiles",
                                  "Warning on Wrong Identity",
                                  "Alert when committing with a different identity than expected",
                                  "Machine Change Detection",
                                  "Notify when you switch machines and profile might need updating",
                                  "About",
                                  "Notification features allow you to stay aware of your git identity across different contexts.",
                                  "These features are coming soon in a future update."])
            // Entries only: no switch on this page.
            const walk = item => {
                verify(!(item instanceof Toggle))
                for (let i = 0; i < item.children.length; ++i)
                    walk(item.children[i])
            }
            walk(page)
        }

        function test_sync() {
            const page = makePage(syncPage)
            reader.checkHeader(page, "Sync", "Keep your profiles synchronized across devices",
                        "arrow.triangle.2.circlepath")
            reader.compareInOrder(page, ["iCloud Sync", "iCloud Sync",
                                  "Sync profiles automatically across your Macs",
                                  "Current Status", "Sync Status", "Local Only", "Last Sync", "Never",
                                  "About",
                                  "iCloud sync allows you to keep your profiles and settings synchronized across all your Macs signed into the same iCloud account.",
                                  "This feature will be available in a future update."])
            reader.checkFeature(page, "iCloud Sync", "icloud.fill", Theme.blue,
                         "Sync profiles automatically across your Macs", true)
        }

        function test_noPageChangesAnythingWhenOpenedOrClicked() {
            // Addresses go to the fixture from here on, not to a browser.
            ProfilesFixture.openedUrls()
            Fixture.arrange(2, true, false)
            const preferencesFile = ProfilesFixture.homeFileText(".config/Kivora/Kivora.conf")
            const profiles = Fixture.profileIds()
            const active = Fixture.activeProfileID()
            const gitName = Fixture.globalGitName()
            const saved = Fixture.savedProfileCount()
            const before = reader.preferences()
            for (const component of [sshPage, hooksPage, notificationsPage, syncPage, aboutPage]) {
                const page = component.createObject(stage)
                waitForRendering(page)
                verify(reader.clickEverything(page) > 10)
                page.destroy()
                wait(0)
            }
            compare(reader.preferences(), before)
            compare(ProfilesFixture.homeFileText(".config/Kivora/Kivora.conf"), preferencesFile)
            compare(Fixture.profileIds(), profiles)
            compare(Fixture.activeProfileID(), active)
            compare(Fixture.globalGitName(), gitName)
            compare(Fixture.savedProfileCount(), saved)
            verify(!Fixture.homeFileExists(".config/autostart/kivora.desktop"))
        }
    }
}
