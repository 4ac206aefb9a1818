// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The TestCase item itself is invisible, so the page is made on a visible stage beside it.
Item {
    width: 840
    height: 650

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "ProfilesSettingsView"
        when: windowShown

        ProfilesPageDriver {
            id: driver
            testCase: testCase
            stage: stage
            pageComponent: pageComponent
        }

        Component {
            id: pageComponent
            ProfilesSettingsView {
                width: 840
                height: 650
            }
        }

        function init() {
            ProfilesFixture.removeHomeFolder(".ssh")
        }

        function test_countLineIsSingularOnlyForOne() {
            Fixture.arrange(0, false, false)
            const page = driver.makePage()
            compare(findChild(page, "countText").text, "0 profiles")
            verify(findChild(page, "emptyState").visible)
            verify(!findChild(page, "profileList").visible)

            Fixture.arrange(1, false, false)
            compare(findChild(page, "countText").text, "1 profile")
            verify(!findChild(page, "emptyState").visible)
            verify(findChild(page, "profileList").visible)

            Fixture.arrange(2, false, false)
            compare(findChild(page, "countText").text, "2 profiles")
        }

        function test_emptyStateTexts() {
            Fixture.arrange(0, false, false)
            const page = driver.makePage()
            const empty = findChild(page, "emptyState")
            const texts = []
            for (let i = 0; i < empty.children.length; ++i) {
                if (empty.children[i].text !== undefined) {
                    texts.push(empty.children[i].text)
                }
            }
            compare(texts, ["No profiles yet", "Add your first profile to get started"])
        }

        function test_rowsShowProfilesInOrder() {
            Fixture.arrange(3, true, false)
            const page = driver.makePage()
            compare(page.profileCount, 3)
            for (let i = 0; i < 3; ++i) {
                const target = driver.row(page, i)
                compare(findChild(target, "nameText").text, "Profile " + (i + 1))
                compare(findChild(target, "identityText").text,
                        "User " + (i + 1) + " · user" + (i + 1) + "@example.com")
                compare(target.isActive, i === 0)
            }
            compare(findChild(driver.row(page, 0), "statusDot").color, Theme.green)
            compare(findChild(driver.row(page, 1), "statusDot").color, Qt.rgba(0, 0, 0, 0))
        }

        function test_hoverShowsEditAndDelete() {
            Fixture.arrange(2, false, false)
            const page = driver.makePage()
            const target = driver.row(page, 1)
            verify(!findChild(target, "hoverActions").visible)
            driver.hover(target)
            tryCompare(findChild(target, "hoverActions"), "opacity", 1)
            compare(findChild(target, "editButton").ToolTip.text, "Edit profile")
            compare(findChild(target, "deleteButton").ToolTip.text, "Delete profile")
            compare(findChild(target, "rowBackground").opacity, 1)
            compare(findChild(driver.row(page, 0), "rowBackground").opacity, 0.5)
        }

        function test_clickActivatesTheProfile() {
            Fixture.arrange(2, true, false)
            const page = driver.makePage()
            mouseClick(findChild(driver.row(page, 1), "activateButton"))
            compare(Fixture.activeProfileID(), Fixture.profileIds()[1])
            compare(Fixture.globalGitName(), "User 2")
            tryVerify(() => driver.row(page, 1).isActive && !driver.row(page, 0).isActive)
        }

        function test_deleteWithoutKeyOffersDeleteAndCancel() {
            Fixture.arrange(2, false, false)
            ProfilesFixture.writeHomeFile(".ssh/id_ed25519", "private\n")
            ProfilesFixture.writeHomeFile(".ssh/id_ed25519.pub", "public\n")
            const page = driver.makePage()
            const dialog = driver.askToDelete(page, 0)
            compare(findChild(dialog.contentItem, "dialogTitle").text, "Delete Profile")
            compare(findChild(dialog.contentItem, "dialogMessage").text,
                    "Are you sure you want to delete \"Profile 1\"? This action cannot be undone.")
            verify(driver.dialogButton(dialog, "deleteButton").visible)
            compare(driver.dialogButton(dialog, "deleteButton").text, "Delete")
            verify(driver.dialogButton(dialog, "cancelButton").visible)
            compare(driver.dialogButton(dialog, "cancelButton").text, "Cancel")
            verify(!driver.dialogButton(dialog, "deleteProfileOnlyButton").visible)
            verify(!driver.dialogButton(dialog, "deleteProfileAndKeyButton").visible)

            // Cancel keeps everything.
            mouseClick(driver.dialogButton(dialog, "cancelButton"))
            tryVerify(() => !dialog.visible)
            compare(Fixture.profileNames(), ["Profile 1", "Profile 2"])

            const again = driver.askToDelete(page, 0)
            mouseClick(driver.dialogButton(again, "deleteButton"))
            tryCompare(page, "profileCount", 1)
            compare(Fixture.profileNames(), ["Profile 2"])
            compare(ProfilesFixture.savedProfileNames(), ["Profile 2"])
            compare(ProfilesFixture.homeFileText(".ssh/id_ed25519"), "private\n")
            compare(ProfilesFixture.homeFileText(".ssh/id_ed25519.pub"), "public\n")
        }

        function test_deleteProfileOnlyKeepsTheKeyFiles() {
            driver.keyProfiles()
            const page = driver.makePage()
            const dialog = driver.askToDelete(page, 0)
            compare(findChild(dialog.contentItem, "dialogTitle").text, "Delete Profile")
            compare(findChild(dialog.contentItem, "dialogMessage").text,
                    "This profile has an SSH key associated with it. Would you also like to delete the SSH key file?")
            verify(!driver.dialogButton(dialog, "deleteButton").visible)
            compare(driver.dialogButton(dialog, "deleteProfileOnlyButton").text, "Delete Profile Only")
            compare(driver.dialogButton(dialog, "deleteProfileAndKeyButton").text,
                    "Delete Profile and SSH Key")
            verify(driver.dialogButton(dialog, "cancelButton").visible)
            // In this order, top to bottom.
            verify(driver.dialogButton(dialog, "deleteProfileOnlyButton").y
                   < driver.dialogButton(dialog, "deleteProfileAndKeyButton").y)
            verify(driver.dialogButton(dialog, "deleteProfileAndKeyButton").y
                   < driver.dialogButton(dialog, "cancelButton").y)

            mouseClick(driver.dialogButton(dialog, "deleteProfileOnlyButton"))
            tryCompare(page, "profileCount", 1)
            compare(ProfilesFixture.savedProfileNames(), ["Home"])
            verify(ProfilesFixture.homeFileExists(".ssh/id_work"))
            verify(ProfilesFixture.homeFileExists(".ssh/id_work.pub"))
        }

        function test_deleteProfileAndKeyRemovesBothFiles() {
            driver.keyProfiles()
            const page = driver.makePage()
            const dialog = driver.askToDelete(page, 0)
            mouseClick(driver.dialogButton(dialog, "deleteProfileAndKeyButton"))
            tryCompare(page, "profileCount", 1)
            compare(ProfilesFixture.savedProfileNames(), ["Home"])
            verify(!ProfilesFixture.homeFileExists(".ssh/id_work"))
            verify(!ProfilesFixture.homeFileExists(".ssh/id_work.pub"))
        }

        function test_deleteProfileAndKeyWithAFileMissing() {
            driver.keyProfiles()
            ProfilesFixture.removeHomeFolder(".ssh")
            ProfilesFixture.writeHomeFile(".ssh/id_work.pub", "ssh-ed25519 AAAA ada\n")
            const page = driver.makePage()
            mouseClick(driver.dialogButton(driver.askToDelete(page, 0), "deleteProfileAndKeyButton"))
            tryCompare(page, "profileCount", 1)
            verify(!ProfilesFixture.homeFileExists(".ssh/id_work.pub"))
            compare(ProfilesFixture.savedProfileNames(), ["Home"])

            // Neither file there: the profile still goes.
            ProfilesFixture.arrangeProfiles([{ name: "Gone", gitName: "G", gitEmail: "g@example.com",
                                               sshKeyPath: "~/.ssh/nothing" }], -1)
            tryCompare(page, "profileCount", 1)
            mouseClick(driver.dialogButton(driver.askToDelete(page, 0), "deleteProfileAndKeyButton"))
            tryCompare(page, "profileCount", 0)
            compare(ProfilesFixture.savedProfileNames(), [])
            verify(findChild(page, "emptyState").visible)
        }

        function test_keyUsedByAnotherProfileIsNamed() {
            ProfilesFixture.writeHomeFile(".ssh/id_work", "private\n")
            ProfilesFixture.arrangeProfiles([
                { name: "Work", gitName: "A", gitEmail: "a@example.com", sshKeyPath: "~/.ssh/id_work" },
                { name: "Client", gitName: "A", gitEmail: "a@example.com", sshKeyPath: "~/.ssh/id_work" },
                { name: "Home", gitName: "A", gitEmail: "a@example.com", sshKeyPath: "~/.ssh/id_home" }], -1)
            const page = driver.makePage()
            const dialog = driver.askToDelete(page, 0)
            compare(findChild(dialog.contentItem, "dialogMessage").text,
                    "This profile has an SSH key associated with it. Would you also like to delete the SSH key file?"
                    + " The same key is also used by \"Client\".")
            mouseClick(driver.dialogButton(dialog, "deleteProfileOnlyButton"))
            tryCompare(page, "profileCount", 2)
            // A key no other profile uses: the fixed text alone.
            compare(findChild(driver.askToDelete(page, 1).contentItem, "dialogMessage").text,
                    "This profile has an SSH key associated with it. Would you also like to delete the SSH key file?")
        }

        function test_keyOutsideSshIsKeptAndTheUserIsTold() {
            ProfilesFixture.writeHomeFile("notes.txt", "mine\n")
            ProfilesFixture.arrangeProfiles([
                { name: "Evil", gitName: "E", gitEmail: "e@example.com", sshKeyPath: "~/.ssh/../notes.txt" },
                { name: "Home", gitName: "H", gitEmail: "h@example.com", sshKeyPath: "" }], -1)
            const page = driver.makePage()
            verify(!findChild(page, "keyDeletionMessage").visible)
            mouseClick(driver.dialogButton(driver.askToDelete(page, 0), "deleteProfileAndKeyButton"))
            tryCompare(page, "profileCount", 1)
            compare(ProfilesFixture.savedProfileNames(), ["Home"])
            compare(ProfilesFixture.homeFileText("notes.txt"), "mine\n")
            const message = findChild(page, "keyDeletionMessage")
            verify(message.visible)
            verify(message.text.indexOf("notes.txt is not inside ~/.ssh, so it was not deleted.") >= 0,
                   message.text)
        }

        function test_deletingTheActiveProfileForgetsOnlyWhichWasActive() {
            Fixture.arrange(2, false, false)
            const page = driver.makePage()
            mouseClick(findChild(driver.row(page, 0), "activateButton"))
            compare(Fixture.globalGitName(), "User 1")
            tryVerify(() => driver.row(page, 0).isActive)

            mouseClick(driver.dialogButton(driver.askToDelete(page, 0), "deleteButton"))
            tryCompare(page, "profileCount", 1)
            compare(Fixture.activeProfileID(), "")
            verify(!driver.row(page, 0).isActive)
            compare(Fixture.globalGitName(), "User 1")
        }
    }
}
