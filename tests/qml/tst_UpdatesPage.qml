// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

Item {
    width: 1100
    height: 1000

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "UpdatesPage"
        when: windowShown

        PageReader {
            id: reader
            testCase: testCase
        }

        Component {
            id: pageComponent
            UpdatesSettingsView {
                width: 1100
                height: 1000
            }
        }

        SignalSpy {
            id: finished
            target: Updater
            signalName: "checkFinished"
        }

        function init() {
            Updater.automaticallyChecksForUpdates = true
            Updater.updateCheckInterval = 86400
        }

        function cleanup() {
            init()
        }

        // A value of the updater's group in the preferences file in the temporary home.
        function makePage() {
            const page = createTemporaryObject(pageComponent, stage)
            waitForRendering(page)
            return page
        }

        function test_header() {
            const page = makePage()
            compare(findChild(page, "pageTitle").text, "Updates")
            compare(findChild(page, "pageSubtitle").text, "Keep Kivora up to date")
            compare(page.icon, "arrow.down.circle.fill")
        }

        function test_automaticUpdatesSwitch() {
            const page = makePage()
            const row = findChild(page, "automaticUpdatesRow")
            compare(findChild(row, "toggleTitle").text, "Automatic Updates")
            compare(findChild(row, "toggleDescription").text,
                    "Automatically check for updates on app launch")
            const toggle = findChild(row, "toggle")
            verify(toggle.checked)
            mouseClick(toggle)
            compare(Updater.automaticallyChecksForUpdates, false)
            compare(reader.stored("automaticallyChecksForUpdates", "updater"), "false")
            verify(!toggle.checked)
            mouseClick(toggle)
            compare(Updater.automaticallyChecksForUpdates, true)
            compare(reader.stored("automaticallyChecksForUpdates", "updater"), "true")
            verify(toggle.checked)
            // A change made elsewhere shows at once.
            Updater.automaticallyChecksForUpdates = false
            verify(!toggle.checked)
        }

        function test_frequencyPickerOffersThreeIntervals() {
            const page = makePage()
            const picker = findChild(page, "frequencyPicker")
            compare(picker.width, 120)
            compare(picker.count, 3)
            compare(picker.choices.map(c => c.text), ["Daily", "Weekly", "Monthly"])
            compare(picker.choices.map(c => c.value), [86400, 604800, 2592000])
            compare(picker.displayText, "Daily")
            Updater.updateCheckInterval = 2592000
            compare(picker.displayText, "Monthly")
            Updater.updateCheckInterval = 604800
            compare(picker.displayText, "Weekly")
        }

        function test_otherIntervalLeavesThePickerEmpty() {
            const page = makePage()
            const picker = findChild(page, "frequencyPicker")
            Updater.updateCheckInterval = 7200
            compare(Updater.updateCheckInterval, 7200)
            compare(picker.currentIndex, -1)
            compare(picker.displayText, "")
            // Close to a choice is not the choice.
            Updater.updateCheckInterval = 86400.5
            compare(picker.currentIndex, -1)
            Updater.updateCheckInterval = 86400
            compare(picker.currentIndex, 0)
        }

        function test_choosingAnIntervalWritesTheUpdater() {
            const page = makePage()
            const picker = findChild(page, "frequencyPicker")
            Updater.updateCheckInterval = 7200
            mouseClick(picker)
            tryVerify(() => picker.popup.opened)
            const list = picker.popup.contentItem
            tryVerify(() => list.itemAtIndex(2) !== null)
            mouseClick(list.itemAtIndex(2))
            compare(Updater.updateCheckInterval, 2592000)
            compare(reader.stored("updateCheckInterval", "updater"), "2592000")
            compare(picker.displayText, "Monthly")
            tryVerify(() => !picker.popup.visible)

            mouseClick(picker)
            tryVerify(() => picker.popup.opened)
            tryVerify(() => list.itemAtIndex(1) !== null)
            mouseClick(list.itemAtIndex(1))
            compare(Updater.updateCheckInterval, 604800)
            compare(reader.stored("updateCheckInterval", "updater"), "604800")
            compare(picker.displayText, "Weekly")
        }

        function test_versionIsFixed() {
            const page = makePage()
            const row = findChild(page, "currentVersionRow")
            compare(row.label, "Current Version")
            compare(findChild(row, "value").text, "1.0.0")
        }

        function test_lastCheckedAbsentBeforeAnyCheck() {
            verify(!Updater.hasLastUpdateCheckDate)
            const page = makePage()
            verify(!findChild(page, "lastCheckedRow").visible)
            compare(findChild(page, "checkNowButton").text, "Check Now")
        }

        function test_failedCheckLeavesLastCheckedAbsent() {
            if (String(Updater.feedUrl()).length > 0)
                skip("an update feed is configured in this environment")
            const page = makePage()
            finished.clear()
            mouseClick(findChild(page, "checkNowButton"))
            finished.wait(10000)
            compare(finished.signalArguments[0][0], true)
            compare(Updater.state, Updater.Error)
            compare(Updater.errorMessage, "No update feed is configured.")
            verify(!findChild(page, "lastCheckedRow").visible)
            compare(reader.stored("lastUpdateCheckDate", "updater"), undefined)
        }

        function test_aboutSparkle() {
            const page = makePage()
            const link = findChild(page, "sparkleLink")
            compare(link.text, "Learn more about Sparkle")
            const before = ProfilesFixture.openedUrls().length
            mouseClick(link)
            compare(ProfilesFixture.openedUrls().slice(before), [String(page.sparkleUrl)])
            let found = false
            const walk = item => {
                if (item.text === "Kivora uses Sparkle for updates. Sparkle is an open-source update framework for macOS apps.")
                    found = item.visible
                for (let i = 0; i < item.children.length; ++i)
                    walk(item.children[i])
            }
            walk(page)
            verify(found)
        }
    }
}
