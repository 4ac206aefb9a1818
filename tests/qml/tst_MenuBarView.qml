// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The TestCase item itself is invisible, so the views are made on a visible stage beside it.
Item {
    width: 400
    height: 800

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "MenuBarView"
        when: windowShown

        Component {
            id: viewComponent
            MenuBarView {}
        }

        function init() {
            SettingsManager.compactMode = false
            SettingsManager.showProfileEmail = true
            SettingsManager.menuBarIconStyle = "dot"
        }

        function makeView(count, firstActive, needsSetup) {
            Fixture.arrange(count, firstActive, needsSetup)
            return createTemporaryObject(viewComponent, stage)
        }

        function rowNamed(view, name) {
            return findChild(view, "profileRow:" + name)
        }

        function test_noProfilesAndSetupNeeded() {
            const view = makeView(0, false, true)
            verify(findChild(view, "setupBanner").visible)
            verify(findChild(view, "noProfileText").visible)
            verify(!findChild(view, "activeProfileName").visible)
            compare(view.profiles.count, 0)
            compare(findChild(view, "aiStatus").value, "Not configured")
            compare(findChild(view, "syncStatus").value, "Local only")
            verify(findChild(view, "addProfileButton").visible)
            verify(findChild(view, "settingsButton").visible)
            verify(findChild(view, "quitButton").visible)
        }

        function test_noBannerWithoutSetup() {
            const view = makeView(2, true, false)
            verify(!findChild(view, "setupBanner").visible)
        }

        function test_noActiveProfile() {
            const view = makeView(3, false, false)
            verify(findChild(view, "noProfileText").visible)
            compare(findChild(view, "noProfileText").text, "No profile selected")
        }

        function test_activeProfileCard() {
            const view = makeView(3, true, false)
            verify(!findChild(view, "noProfileText").visible)
            compare(findChild(view, "activeProfileName").text, "Profile 1")
            compare(findChild(view, "gitNameLine").text, "User 1")
            // No key: the card leaves the key line out.
            verify(!findChild(view, "keyLine").visible)
        }

        function test_emailLineFollowsThePreference() {
            const view = makeView(2, true, false)
            const email = findChild(view, "emailLine")
            verify(email.visible)
            compare(email.text, "user1@example.com")
            SettingsManager.showProfileEmail = false
            verify(!email.visible)
        }

        function test_listHeightIsCappedByCompactMode() {
            // Twelve rows are far taller than either maximum.
            const view = makeView(12, true, false)
            const list = findChild(view, "profileList")
            tryCompare(list, "height", 250)
            SettingsManager.compactMode = true
            tryCompare(list, "height", 150)
        }

        function test_shortListIsNotStretched() {
            const view = makeView(1, true, false)
            const list = findChild(view, "profileList")
            verify(list.height > 0)
            verify(list.height < 150)
        }

        function test_avatarStyles_data() {
            return [
                { tag: "dot", style: "dot", visible: "styleDot" },
                { tag: "full", style: "full", visible: "styleLogo" },
                { tag: "text", style: "text", visible: "styleLetter" },
            ]
        }

        function test_avatarStyles(data) {
            const view = makeView(1, true, false)
            SettingsManager.menuBarIconStyle = data.style
            for (const name of ["styleDot", "styleLogo", "styleLetter"])
                compare(findChild(view, name).visible, name === data.visible, name)
            if (data.style === "text")
                compare(findChild(view, "styleLetter").text, "K")
            if (data.style === "full")
                tryCompare(findChild(view, "styleLogo"), "status", Image.Ready)
        }

        function test_clickSwitchesTheGlobalIdentityAndMarksTheRow() {
            const view = makeView(3, true, false)
            const row = rowNamed(view, "Profile 2")
            waitForRendering(view)
            mouseClick(row, 40, row.height / 2)
            compare(Fixture.globalGitName(), "User 2")
            compare(Fixture.activeProfileID(), Fixture.profileIds()[1])
            verify(rowNamed(view, "Profile 2").justSwitched)
            verify(rowNamed(view, "Profile 2").active)
            verify(!rowNamed(view, "Profile 1").active)
            // The mark is cleared by the timer, after 1.5 seconds.
            tryCompare(rowNamed(view, "Profile 2"), "justSwitched", false, 5000)
        }

        function test_deleteRemovesOnlyThatProfile() {
            const view = makeView(3, true, false)
            const activeBefore = Fixture.activeProfileID()
            const gitNameBefore = Fixture.globalGitName()
            rowNamed(view, "Profile 1").deleteRequested()
            compare(Fixture.profileNames(), ["Profile 2", "Profile 3"])
            compare(Fixture.savedProfileCount(), 2)
            compare(Fixture.activeProfileID(), activeBefore)
            compare(Fixture.globalGitName(), gitNameBefore)
            compare(view.profiles.count, 2)
            verify(findChild(view, "noProfileText").visible)
        }
    }
}
