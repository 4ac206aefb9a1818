import QtQuick
import QtTest
import Kivora
import KivoraTest

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

        Component { id: sshPage; SSHSettingsView { width: 1100; height: 1300 } }
        Component { id: hooksPage; HooksSettingsView { width: 1100; height: 1300 } }
        Component { id: notificationsPage; NotificationsSettingsView { width: 1100; height: 1300 } }
        Component { id: syncPage; SyncSettingsView { width: 1100; height: 1300 } }
        Component { id: aboutPage; AboutSettingsView { width: 1100; height: 1300 } }

        function makePage(component) {
            return createTemporaryObject(component, stage)
        }

        // The texts shown on a page (visible ones only), top to bottom, left to right.
        function shownTexts(page) {
            const found = []
            const walk = item => {
                if (!item.visible)
                    return
                if (typeof item.text === "string" && item.text.length > 0
                        && item.font !== undefined) {
                    const at = item.mapToItem(page, 0, 0)
                    found.push({ text: item.text, x: at.x, y: at.y })
                }
                for (let i = 0; i < item.children.length; ++i)
                    walk(item.children[i])
            }
            walk(page)
            // Same line: within a few pixels of each other.
            found.sort((a, b) => Math.abs(a.y - b.y) > 4 ? a.y - b.y : a.x - b.x)
            return found.map(entry => entry.text)
        }

        // Checks that `expected` appear on the page in this order (other texts may lie
        // between them).
        function compareInOrder(page, expected) {
            const texts = shownTexts(page)
            let from = 0
            for (const text of expected) {
                const at = texts.indexOf(text, from)
                verify(at >= 0, "missing or out of order: " + text + "\nshown: " + texts.join(" | "))
                from = at + 1
            }
        }

        function checkHeader(page, title, subtitle, symbol) {
            compare(findChild(page, "pageTitle").text, title)
            compare(findChild(page, "pageSubtitle").text, subtitle)
            compare(page.icon, symbol)
            verify(!findChild(page, "progressBadge").visible)
        }

        function checkFeature(page, title, symbol, tint, description, comingSoon) {
            const row = findChild(page, "feature:" + title)
            verify(row, title)
            compare(row.symbol, symbol)
            compare(String(row.tint), String(tint))
            compare(findChild(row, "featureTitle").text, title)
            compare(findChild(row, "featureDescription").text, description)
            const badge = findChild(row, "comingSoonBadge")
            compare(badge.visible, comingSoon)
            compare(badge.text, "Coming Soon")
        }

        function preferences() {
            return [SettingsManager.menuBarIconStyle, SettingsManager.appAppearance,
                    SettingsManager.showProfileEmail, SettingsManager.showSSHKey,
                    SettingsManager.compactMode]
        }

        // Clicks the middle of every visible item of the page, except where the
        // start-at-login switch lies (it writes its file on purpose). Links are clicked too:
        // the test fixture takes the addresses instead of a browser.
        function clickEverything(page) {
            const avoided = []
            const targets = []
            const walk = item => {
                if (!item.visible)
                    return
                if (String(item.objectName) === "startAtLoginRow") {
                    avoided.push(item.mapToItem(page, 0, 0, item.width, item.height))
                    return
                }
                if (item.width > 0 && item.height > 0 && item !== page)
                    targets.push(item)
                for (let i = 0; i < item.children.length; ++i)
                    walk(item.children[i])
            }
            walk(page)
            let clicked = 0
            for (const item of targets) {
                const middle = item.mapToItem(page, item.width / 2, item.height / 2)
                const blocked = avoided.some(r => middle.x >= r.x - 2 && middle.x <= r.x + r.width + 2
                                                  && middle.y >= r.y - 2 && middle.y <= r.y + r.height + 2)
                if (blocked || middle.y > page.height)
                    continue
                mouseClick(page, middle.x, middle.y)
                ++clicked
            }
            return clicked
        }

        function test_ssh() {
            const page = makePage(sshPage)
            checkHeader(page, "SSH", "Manage SSH keys and connections", "key.fill")
            compareInOrder(page, ["SSH Key Management", "Key Scanner", "Key Generator",
                                  "Connection Testing", "Current Keys", "Detected Keys", "0",
                                  "No SSH keys have been detected yet. Use the Profiles section to scan for keys.",
                                  "About",
                                  "SSH key management allows you to scan, generate, and test SSH keys associated with your profiles.",
                                  "This feature will be available in a future update."])
            checkFeature(page, "Key Scanner", "key.horizontal.fill", Theme.purple,
                         "Automatically detect SSH keys in ~/.ssh", true)
            checkFeature(page, "Key Generator", "plus.circle.fill", Theme.green,
                         "Generate new SSH keys directly from Kivora", true)
            checkFeature(page, "Connection Testing", "antenna.radiowaves.left.and.right",
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
            checkHeader(page, "Hooks", "Automate actions when switching profiles", "terminal.fill")
            compareInOrder(page, ["Automation Hooks", "Profile Activation Hooks",
                                  "Profile Deactivation Hooks", "Example Hooks",
                                  "Connect VPN",
                                  "Automatically connect to work VPN when activating Work profile",
                                  "Switch Slack Workspace", "Change Slack workspace based on profile",
                                  "Set AWS Profile", "Configure AWS credentials for different profiles",
                                  "Environment Variables", "Set custom environment variables per profile",
                                  "About",
                                  "Hooks allow you to run custom scripts automatically when activating or deactivating profiles.",
                                  "This feature will be available in a future update."])
            checkFeature(page, "Profile Activation Hooks", "bolt.fill", Theme.orange,
                         "Run scripts when a profile becomes active", true)
            checkFeature(page, "Profile Deactivation Hooks", "xmark.circle.fill", Theme.red,
                         "Run scripts when switching away from a profile", true)
        }

        function test_notifications() {
            const page = makePage(notificationsPage)
            checkHeader(page, "Notifications", "Configure alerts and warnings", "bell.fill")
            compareInOrder(page, ["Notifications",
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
            checkHeader(page, "Sync", "Keep your profiles synchronized across devices",
                        "arrow.triangle.2.circlepath")
            compareInOrder(page, ["iCloud Sync", "iCloud Sync",
                                  "Sync profiles automatically across your Macs",
                                  "Current Status", "Sync Status", "Local Only", "Last Sync", "Never",
                                  "About",
                                  "iCloud sync allows you to keep your profiles and settings synchronized across all your Macs signed into the same iCloud account.",
                                  "This feature will be available in a future update."])
            checkFeature(page, "iCloud Sync", "icloud.fill", Theme.blue,
                         "Sync profiles automatically across your Macs", true)
        }

        function test_about() {
            const page = makePage(aboutPage)
            checkHeader(page, "About", "Learn more about Kivora", "info.circle.fill")
            compareInOrder(page, ["App Info", "Kivora", "Version 1.0.0 (Build 1)",
                                  "Description",
                                  "Kivora helps you manage multiple git identities across different projects and machines.",
                                  "Switch between git profiles instantly with a single click from your menu bar.",
                                  "Quick Links", "Website", "Documentation", "Support", "Privacy Policy"])
            verify(findChild(page, "appLogo").status === Image.Ready)
            const links = [["Website", "globe"], ["Documentation", "book"],
                           ["Support", "questionmark.circle"], ["Privacy Policy", "hand.raised"]]
            for (const [title, symbol] of links) {
                const link = findChild(page, "link:" + title)
                compare(link.text, title)
                compare(link.symbol, symbol)
                verify(String(link.url).startsWith("https://"), title)
            }
            compare(String(findChild(page, "link:Website").url), String(page.websiteUrl))
            // The footer: two small lines under everything else.
            const footer = findChild(page, "footer")
            verify(footer.visible)
            verify(footer.mapToItem(page, 0, 0).y
                   > findChild(page, "link:Privacy Policy").mapToItem(page, 0, 0).y)
        }

        // The titles of the page's sections, top to bottom.
        function sectionTitles(page) {
            const titles = []
            const walk = item => {
                if (item.objectName === "sectionHeader" && item.visible)
                    titles.push(item.children[0].text)
                for (let i = 0; i < item.children.length; ++i)
                    walk(item.children[i])
            }
            walk(page)
            return titles
        }

        function test_aboutHasExactlyItsSections() {
            const page = makePage(aboutPage)
            // Start at login is the tray menu's, not this page's.
            compare(sectionTitles(page), ["App Info", "Description", "Quick Links"])
            verify(findChild(page, "startAtLoginRow") === null)
            const texts = []
            const walk = item => {
                if (item.text !== undefined)
                    texts.push(String(item.text))
                for (let i = 0; i < item.children.length; ++i)
                    walk(item.children[i])
            }
            walk(page)
            verify(!texts.some(text => text.toLowerCase().indexOf("login") >= 0), texts.join("|"))
        }

        function test_linksOpenTheBrowser() {
            const page = makePage(aboutPage)
            const before = ProfilesFixture.openedUrls().length
            for (const title of ["Website", "Documentation", "Support", "Privacy Policy"])
                mouseClick(findChild(page, "link:" + title))
            compare(ProfilesFixture.openedUrls().slice(before),
                    [String(page.websiteUrl), String(page.documentationUrl),
                     String(page.supportUrl), String(page.privacyUrl)])
            // Four different pages of the maker's site.
            const unique = new Set(ProfilesFixture.openedUrls().slice(before))
            compare(unique.size, 4)
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
            const before = preferences()
            for (const component of [sshPage, hooksPage, notificationsPage, syncPage, aboutPage]) {
                const page = component.createObject(stage)
                waitForRendering(page)
                verify(clickEverything(page) > 10)
                page.destroy()
                wait(0)
            }
            compare(preferences(), before)
            compare(ProfilesFixture.homeFileText(".config/Kivora/Kivora.conf"), preferencesFile)
            compare(Fixture.profileIds(), profiles)
            compare(Fixture.activeProfileID(), active)
            compare(Fixture.globalGitName(), gitName)
            compare(Fixture.savedProfileCount(), saved)
            verify(!Fixture.homeFileExists(".config/autostart/kivora.desktop"))
        }
    }
}
