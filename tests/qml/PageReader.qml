// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// Reads a settings page as a user sees it (its texts in reading order, its header, feature
// rows, section titles and picker segments) and clicks everything on it, and reads the
// preferences file as it stands on disk. The test cases hold the assertions.
QtObject {
    id: reader

    required property TestCase testCase

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
        const texts = reader.shownTexts(page)
        let from = 0
        for (const text of expected) {
            const at = texts.indexOf(text, from)
            testCase.verify(at >= 0, "missing or out of order: " + text + "\nshown: " + texts.join(" | "))
            from = at + 1
        }
    }

    function checkHeader(page, title, subtitle, symbol) {
        testCase.compare(testCase.findChild(page, "pageTitle").text, title)
        testCase.compare(testCase.findChild(page, "pageSubtitle").text, subtitle)
        testCase.compare(page.icon, symbol)
        testCase.verify(!testCase.findChild(page, "progressBadge").visible)
    }

    function checkFeature(page, title, symbol, tint, description, comingSoon) {
        const row = testCase.findChild(page, "feature:" + title)
        testCase.verify(row, title)
        testCase.compare(row.symbol, symbol)
        testCase.compare(String(row.tint), String(tint))
        testCase.compare(testCase.findChild(row, "featureTitle").text, title)
        testCase.compare(testCase.findChild(row, "featureDescription").text, description)
        const badge = testCase.findChild(row, "comingSoonBadge")
        testCase.compare(badge.visible, comingSoon)
        testCase.compare(badge.text, "Coming Soon")
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
            testCase.mouseClick(page, middle.x, middle.y)
            ++clicked
        }
        return clicked
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

    // A page made on the stage and drawn once.
    function make(component, stage) {
        const page = testCase.createTemporaryObject(component, stage)
        testCase.waitForRendering(page)
        return page
    }

    function segment(page, pickerName, label) {
        return testCase.findChild(testCase.findChild(page, pickerName), "segment:" + label)
    }

    // A value as it stands in the preferences file in the temporary home (INI text, as
    // QSettings writes it on Linux) in a group ("General" when none is named), or undefined
    // when the key is absent.
    function stored(key, wantedGroup) {
        const text = ProfilesFixture.homeFileText(".config/Kivora/Kivora.conf")
        let group = "General"
        for (const raw of text.split("\n")) {
            const line = raw.trim()
            if (line.startsWith("[")) {
                group = line.slice(1, -1)
                continue
            }
            const equals = line.indexOf("=")
            if (group === (wantedGroup ?? "General") && equals > 0 && line.slice(0, equals) === key)
                return line.slice(equals + 1)
        }
        return undefined
    }

    function relativeLuminance(c) {
        return 0.2126 * c.r + 0.7152 * c.g + 0.0722 * c.b
    }
}
