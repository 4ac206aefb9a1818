// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The About page: its identity, sections and links.
Item {
    width: 1100
    height: 1300

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "AboutPage"
        when: windowShown

        PageReader {
            id: reader
            testCase: testCase
        }

        Component { id: aboutPage; AboutSettingsView { width: 1100; height: 1300 } }

        function makePage(component) {
            return createTemporaryObject(component, stage)
        }

        function test_about() {
            const page = makePage(aboutPage)
            reader.checkHeader(page, "About", "Learn more about Kivora", "info.circle.fill")
            reader.compareInOrder(page, ["App Info", "Kivora", "Version 1.0.0 (Build 1)",
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

        function test_aboutHasExactlyItsSections() {
            const page = makePage(aboutPage)
            // Start at login is the tray menu's, not this page's.
            compare(reader.sectionTitles(page), ["App Info", "Description", "Quick Links"])
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
    }
}
