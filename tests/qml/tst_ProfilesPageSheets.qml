// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The profiles page and the sheets it opens (the editor and the key scan). The TestCase item
// itself is invisible, so the page is made on a visible stage beside it.
Item {
    width: 840
    height: 650

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "ProfilesPageSheets"
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

        function test_editorOpensForTheRow() {
            Fixture.arrange(2, false, false)
            const page = driver.makePage()
            mouseClick(driver.rowButton(page, 1, "editButton"))
            verify(page.editingProfile !== null)
            const editor = page.editorSheet
            verify(editor)
            compare(editor.title, "Edit Profile")
            compare(editor.form.name, "Profile 2")
            compare(editor.Window.window.title, "Edit Profile")
            compare(editor.Window.window.width, 500)
            // Never taller than the window it belongs to: in a window as short as the settings
            // window the sheet is shorter, and its form scrolls.
            verify(editor.Window.window.height < page.Window.window.height)

            // Cancel discards.
            editor.form.name = "Changed"
            mouseClick(findChild(editor, "cancelButton"))
            compare(page.editingProfile, null)
            compare(page.editorSheet, null)
            compare(Fixture.profileNames(), ["Profile 1", "Profile 2"])
        }

        function test_editedProfileIsReplacedInPlace() {
            Fixture.arrange(3, false, false)
            const ids = Fixture.profileIds()
            const page = driver.makePage()
            mouseClick(driver.rowButton(page, 1, "editButton"))
            const editor = page.editorSheet
            driver.typeInto(findChild(editor, "nameField"), "Renamed")
            compare(editor.form.name, "Renamed")
            mouseClick(findChild(editor, "saveButton"))
            compare(page.editorSheet, null)
            compare(Fixture.profileNames(), ["Profile 1", "Renamed", "Profile 3"])
            compare(Fixture.profileIds(), ids)
            compare(ProfilesFixture.savedProfileNames(), ["Profile 1", "Renamed", "Profile 3"])
            // Not applied, even though the profile was edited.
            compare(Fixture.activeProfileID(), "")
        }

        function test_editingAProfileDeletedMeanwhileSavesNothing() {
            Fixture.arrange(2, false, false)
            const page = driver.makePage()
            mouseClick(driver.rowButton(page, 0, "editButton"))
            const editor = page.editorSheet
            verify(editor)

            // The profile goes while its editor is open.
            ProfilesFixture.arrangeProfiles([{ name: "Other", gitName: "O", gitEmail: "o@example.com" }],
                                            -1)
            const before = ProfilesFixture.homeFileText(".git-switcher/profiles.json")
            editor.form.name = "Edited"
            mouseClick(findChild(editor, "saveButton"))
            compare(page.editorSheet, null)
            compare(Fixture.profileNames(), ["Other"])
            compare(ProfilesFixture.homeFileText(".git-switcher/profiles.json"), before)
        }

        function test_addedProfilesShareTheTemplateId() {
            Fixture.arrange(1, false, false)
            const page = driver.makePage()
            mouseClick(findChild(page, "addButton"))
            verify(page.isAddingProfile)
            let editor = page.editorSheet
            compare(editor.title, "New Profile")
            verify(!findChild(editor, "saveButton").enabled)
            driver.fillEditor(editor, "Work", "Ada", "ada@work.example")
            mouseClick(findChild(editor, "saveButton"))
            verify(!page.isAddingProfile)
            compare(Fixture.profileNames(), ["Profile 1", "Work"])

            mouseClick(findChild(page, "addButton"))
            editor = page.editorSheet
            compare(editor.form.name, "")
            driver.fillEditor(editor, "Home", "Ada L", "ada@home.example")
            mouseClick(findChild(editor, "saveButton"))
            compare(Fixture.profileNames(), ["Profile 1", "Work", "Home"])
            compare(ProfilesFixture.savedProfileNames(), ["Profile 1", "Work", "Home"])

            const ids = Fixture.profileIds()
            compare(ids[1], ids[2])
            verify(ids[0] !== ids[1])
            // Neither was activated.
            compare(Fixture.activeProfileID(), "")

            // Activating one marks both.
            tryCompare(page, "profileCount", 3)
            mouseClick(findChild(driver.row(page, 2), "activateButton"))
            tryVerify(() => driver.row(page, 1).isActive && driver.row(page, 2).isActive && !driver.row(page, 0).isActive)

            // Deleting one removes both.
            mouseClick(driver.dialogButton(driver.askToDelete(page, 1), "deleteButton"))
            tryCompare(page, "profileCount", 1)
            compare(Fixture.profileNames(), ["Profile 1"])
            compare(Fixture.activeProfileID(), "")
        }

        function test_scannedKeysBecomeProfilesInOrder() {
            Fixture.arrange(1, false, false)
            for (const key of ["id_rsa_Work", "id_ed25519", "Laptop"]) {
                ProfilesFixture.writeHomeFile(".ssh/" + key, "private\n")
                ProfilesFixture.writeHomeFile(".ssh/" + key + ".pub", "public\n")
            }
            const page = driver.makePage()
            mouseClick(findChild(page, "scanButton"))
            verify(page.showScanSheet)
            const sheet = page.scanSheet
            verify(sheet)
            compare(sheet.Window.window.title, "Scan SSH Keys")
            compare(sheet.Window.window.width, 450)
            tryCompare(sheet.session, "isScanning", false)
            // Plain order: upper case first.
            compare(sheet.session.keys, ["Laptop", "id_ed25519", "id_rsa_Work"])
            for (let i = 0; i < 3; ++i) {
                sheet.session.gitName = "Name " + i
                sheet.session.gitEmail = "mail" + i + "@example.com"
                mouseClick(findChild(sheet, "addButton"))
            }
            compare(findChild(sheet, "createdText").text, "3 profiles created")
            mouseClick(findChild(sheet, "doneButton"))
            verify(!page.showScanSheet)
            compare(page.scanSheet, null)
            compare(Fixture.profileNames(), ["Profile 1", "Laptop", "Ed25519", "Rsa_work"])
            compare(Fixture.profileGitNames(), ["User 1", "Name 0", "Name 1", "Name 2"])
            compare(ProfilesFixture.profileAt(1).sshKeyPath, "~/.ssh/Laptop")
            compare(ProfilesFixture.profileAt(2).sshKeyPath, "~/.ssh/id_ed25519")
            compare(ProfilesFixture.profileAt(3).sshKeyPath, "~/.ssh/id_rsa_Work")
            compare(ProfilesFixture.profileAt(3).gitEmail, "mail2@example.com")
            compare(ProfilesFixture.savedProfileNames().length, 4)
            compare(Fixture.activeProfileID(), "")
        }

        function test_scanWithNothingAddedChangesNothing() {
            Fixture.arrange(1, false, false)
            const before = ProfilesFixture.homeFileText(".git-switcher/profiles.json")
            const page = driver.makePage()
            mouseClick(findChild(page, "scanButton"))
            const sheet = page.scanSheet
            tryCompare(sheet.session, "isScanning", false)
            compare(findChild(sheet, "createdText").text, "0 profiles created")
            mouseClick(findChild(sheet, "doneButton"))
            compare(page.scanSheet, null)
            compare(Fixture.profileNames(), ["Profile 1"])
            compare(ProfilesFixture.homeFileText(".git-switcher/profiles.json"), before)
        }

        // Escape (or the window's close button) on "Import Complete" is "Done": the entries
        // the step reports as created are created. Before that step it is Cancel.
        function test_escapeOnTheLastStepActsAsDone() {
            Fixture.arrange(1, false, false)
            for (const key of ["id_lab", "id_spare"]) {
                ProfilesFixture.writeHomeFile(".ssh/" + key, "private\n")
                ProfilesFixture.writeHomeFile(".ssh/" + key + ".pub", "public\n")
            }
            const page = driver.makePage()
            mouseClick(findChild(page, "scanButton"))
            let sheet = page.scanSheet
            tryCompare(sheet.session, "isScanning", false)
            sheet.session.gitName = "Lab"
            mouseClick(findChild(sheet, "addButton"))
            mouseClick(findChild(sheet, "skipButton"))
            compare(findChild(sheet, "createdText").text, "1 profile created")
            sheet.Window.window.close()
            tryCompare(page, "showScanSheet", false)
            compare(Fixture.profileNames(), ["Profile 1", "Lab"])
            compare(ProfilesFixture.savedProfileNames(), ["Profile 1", "Lab"])

            // Asked about a key, the same key drops what was collected.
            mouseClick(findChild(page, "scanButton"))
            sheet = page.scanSheet
            tryCompare(sheet.session, "isScanning", false)
            mouseClick(findChild(sheet, "addButton"))
            sheet.Window.window.close()
            tryCompare(page, "showScanSheet", false)
            compare(Fixture.profileNames(), ["Profile 1", "Lab"])
        }
    }
}
