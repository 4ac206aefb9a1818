// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

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
        name: "AIPage"
        when: windowShown

        Component {
            id: pageComponent
            AISettingsView {
                width: 1100
                height: 1300
            }
        }

        function makePage() {
            return createTemporaryObject(pageComponent, stage)
        }

        function profileRow(page, name) {
            return findChild(page, "profileRow:" + name)
        }

        function statusTexts(item) {
            // Every "Configured" / "Not configured" text below `item`.
            let found = []
            for (let i = 0; i < item.children.length; ++i) {
                const child = item.children[i]
                if (child.text === "Configured" || child.text === "Not configured")
                    found.push(child)
                found = found.concat(statusTexts(child))
            }
            return found
        }

        function test_header() {
            Fixture.arrange(0, false, false)
            const page = makePage()
            compare(findChild(page, "pageTitle").text, "AI")
            compare(findChild(page, "pageSubtitle").text, "Configure AI context per profile")
            compare(page.icon, "sparkles")
            verify(!findChild(page, "progressBadge").visible)
        }

        function test_providerRowsAreFixedAndNotConfigured() {
            Fixture.arrange(0, false, false)
            const page = makePage()
            const providers = [["OpenAI", "GPT-4, GPT-3.5"], ["Anthropic", "Claude 3.5, Claude 3"],
                               ["Google", "Gemini Pro"], ["Azure OpenAI", "GPT-4, GPT-3.5"]]
            let lastY = -1
            for (const [name, models] of providers) {
                const row = findChild(page, "providerRow:" + name)
                verify(row, name)
                compare(row.name, name)
                compare(row.models, models)
                compare(findChild(row, "providerStatus").text, "Not configured")
                const y = row.mapToItem(page, 0, 0).y
                verify(y > lastY, name)
                lastY = y
            }
            // No row for a local server.
            verify(!findChild(page, "providerRow:Local"))
            compare(statusTexts(findChild(page, "providersCard")).length, 4)
        }

        function test_zeroProfiles() {
            Fixture.arrange(0, false, false)
            const page = makePage()
            compare(findChild(findChild(page, "configuredProfilesRow"), "value").text, "0")
            const empty = findChild(page, "noProfilesText")
            verify(empty.visible)
            compare(empty.text, "No profiles configured yet. Create profiles in the Profiles section.")
            verify(!findChild(page, "moreProfilesText").visible)
            verify(!profileRow(page, "Profile 1"))
        }

        function test_threeProfiles() {
            Fixture.arrange(3, true, false)
            const page = makePage()
            compare(findChild(findChild(page, "configuredProfilesRow"), "value").text, "3")
            verify(!findChild(page, "noProfilesText").visible)
            for (const name of ["Profile 1", "Profile 2", "Profile 3"]) {
                const row = profileRow(page, name)
                verify(row.visible, name)
                compare(statusTexts(row).map(t => t.text), ["Not configured"])
            }
            verify(profileRow(page, "Profile 1").y < profileRow(page, "Profile 2").y)
            verify(profileRow(page, "Profile 2").y < profileRow(page, "Profile 3").y)
            verify(!findChild(page, "moreProfilesText").visible)
        }

        function test_fiveProfilesShowThreeAndTwoMore() {
            Fixture.arrange(5, false, false)
            const page = makePage()
            compare(findChild(findChild(page, "configuredProfilesRow"), "value").text, "5")
            for (const name of ["Profile 1", "Profile 2", "Profile 3"])
                verify(profileRow(page, name).visible, name)
            for (const name of ["Profile 4", "Profile 5"])
                verify(!profileRow(page, name).visible, name)
            const more = findChild(page, "moreProfilesText")
            verify(more.visible)
            compare(more.text, "+ 2 more")
        }

        function test_followsProfilesAddedAndRemoved() {
            Fixture.arrange(2, false, false)
            const page = makePage()
            verify(!findChild(page, "moreProfilesText").visible)
            Fixture.arrange(4, false, false)
            compare(findChild(findChild(page, "configuredProfilesRow"), "value").text, "4")
            compare(findChild(page, "moreProfilesText").text, "+ 1 more")
            Fixture.arrange(0, false, false)
            verify(findChild(page, "noProfilesText").visible)
            verify(!findChild(page, "moreProfilesText").visible)
        }

        function test_configuredProfileStillReadsNotConfigured() {
            // The first profile carries an enabled Anthropic configuration with a key.
            Fixture.arrangeForTransfer()
            compare(Fixture.profilesWithAI(), 1)
            const page = makePage()
            const row = profileRow(page, "id_rsa_Work")
            verify(row.visible)
            compare(statusTexts(row).map(t => t.text), ["Not configured"])
            compare(findChild(findChild(page, "providerRow:Anthropic"), "providerStatus").text,
                    "Not configured")
        }

        function test_aboutParagraphs() {
            Fixture.arrange(0, false, false)
            const page = makePage()
            const texts = []
            const collect = item => {
                for (let i = 0; i < item.children.length; ++i) {
                    const child = item.children[i]
                    if (child.text !== undefined && typeof child.text === "string")
                        texts.push(child.text)
                    collect(child)
                }
            }
            collect(page)
            const about = ["AI Context allows you to associate different AI models and API keys with each profile.",
                           "When you switch profiles, your AI context switches automatically - perfect for using different API keys for work and personal projects.",
                           "This feature will be available in a future update."]
            let last = -1
            for (const paragraph of about) {
                const at = texts.indexOf(paragraph)
                verify(at > last, paragraph)
                last = at
            }
            for (const title of ["AI Providers", "Profile Configuration", "About"])
                verify(texts.indexOf(title) >= 0, title)
            verify(texts.indexOf("AI Providers") < texts.indexOf("Profile Configuration"))
            verify(texts.indexOf("Profile Configuration") < texts.indexOf("About"))
        }
    }
}
