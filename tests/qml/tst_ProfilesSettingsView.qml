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

        function makePage() {
            const page = createTemporaryObject(pageComponent, stage)
            waitForRendering(page)
            return page
        }

        // The row shown at a position (rows of an earlier list may still await deletion).
        function row(page, index) {
            const list = findChild(page, "profileList")
            for (let i = 0; i < list.children.length; ++i) {
                const candidate = list.children[i]
                if (candidate.objectName === "profileRow:" + index) {
                    return candidate
                }
            }
            return null
        }

        // Hovers the row and returns its edit or delete button once it shows.
        function rowButton(page, index, name) {
            const target = row(page, index)
            hover(target)
            const button = findChild(target, name)
            tryVerify(() => button.visible && button.opacity === 1)
            return button
        }

        function rowNamed(page, name) {
            for (let i = 0; i < page.profileCount; ++i) {
                const candidate = row(page, i)
                if (candidate && candidate.profileName === name) {
                    return candidate
                }
            }
            return null
        }

        // Moves the pointer onto the item. Once a sheet's window had the pointer, the test
        // window takes a first move only as the pointer coming back in, so it moves on until
        // the item notices.
        function hover(item) {
            for (let step = 2; step >= 0; --step) {
                mouseMove(item, item.width / 2 - step, item.height / 2)
                wait(0)
            }
            tryVerify(() => item.isHovered)
        }

        // Hovers the row, presses its delete button and returns the open confirmation.
        function askToDelete(page, index) {
            mouseClick(rowButton(page, index, "deleteButton"))
            const dialog = findChild(row(page, index), "deleteConfirmation")
            tryVerify(() => dialog.opened)
            return dialog
        }

        function dialogButton(dialog, name) {
            return findChild(dialog.contentItem, name)
        }

        function keyProfiles() {
            ProfilesFixture.arrangeProfiles([
                { name: "Work", gitName: "Ada", gitEmail: "ada@work.example",
                  sshKeyPath: "~/.ssh/id_work" },
                { name: "Home", gitName: "Ada L", gitEmail: "ada@home.example" }
            ], -1)
            ProfilesFixture.writeHomeFile(".ssh/id_work", "private\n")
            ProfilesFixture.writeHomeFile(".ssh/id_work.pub", "ssh-ed25519 AAAA ada\n")
        }

        // Types into the editor's field, replacing what it holds.
        function typeInto(field, text) {
            field.forceActiveFocus()
            field.selectAll()
            keyClick(Qt.Key_Delete)
            for (const character of text) {
                keyClick(character)
            }
        }

        function fillEditor(editor, name, gitName, gitEmail) {
            editor.form.name = name
            editor.form.gitName = gitName
            editor.form.gitEmail = gitEmail
        }

        function test_countLineIsSingularOnlyForOne() {
            Fixture.arrange(0, false, false)
            const page = makePage()
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
            const page = makePage()
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
            const page = makePage()
            compare(page.profileCount, 3)
            for (let i = 0; i < 3; ++i) {
                const target = row(page, i)
                compare(findChild(target, "nameText").text, "Profile " + (i + 1))
                compare(findChild(target, "identityText").text,
                        "User " + (i + 1) + " · user" + (i + 1) + "@example.com")
                compare(target.isActive, i === 0)
            }
            compare(findChild(row(page, 0), "statusDot").color, Theme.green)
            compare(findChild(row(page, 1), "statusDot").color, Qt.rgba(0, 0, 0, 0))
        }

        function test_hoverShowsEditAndDelete() {
            Fixture.arrange(2, false, false)
            const page = makePage()
            const target = row(page, 1)
            verify(!findChild(target, "hoverActions").visible)
            hover(target)
            tryCompare(findChild(target, "hoverActions"), "opacity", 1)
            compare(findChild(target, "editButton").ToolTip.text, "Edit profile")
            compare(findChild(target, "deleteButton").ToolTip.text, "Delete profile")
            compare(findChild(target, "rowBackground").opacity, 1)
            compare(findChild(row(page, 0), "rowBackground").opacity, 0.5)
        }

        function test_clickActivatesTheProfile() {
            Fixture.arrange(2, true, false)
            const page = makePage()
            mouseClick(findChild(row(page, 1), "activateButton"))
            compare(Fixture.activeProfileID(), Fixture.profileIds()[1])
            compare(Fixture.globalGitName(), "User 2")
            tryVerify(() => row(page, 1).isActive && !row(page, 0).isActive)
        }

        function test_deleteWithoutKeyOffersDeleteAndCancel() {
            Fixture.arrange(2, false, false)
            ProfilesFixture.writeHomeFile(".ssh/id_ed25519", "private\n")
            ProfilesFixture.writeHomeFile(".ssh/id_ed25519.pub", "public\n")
            const page = makePage()
            const dialog = askToDelete(page, 0)
            compare(findChild(dialog.contentItem, "dialogTitle").text, "Delete Profile")
            compare(findChild(dialog.contentItem, "dialogMessage").text,
                    "Are you sure you want to delete \"Profile 1\"? This action cannot be undone.")
            verify(dialogButton(dialog, "deleteButton").visible)
            compare(dialogButton(dialog, "deleteButton").text, "Delete")
            verify(dialogButton(dialog, "cancelButton").visible)
            compare(dialogButton(dialog, "cancelButton").text, "Cancel")
            verify(!dialogButton(dialog, "deleteProfileOnlyButton").visible)
            verify(!dialogButton(dialog, "deleteProfileAndKeyButton").visible)

            // Cancel keeps everything.
            mouseClick(dialogButton(dialog, "cancelButton"))
            tryVerify(() => !dialog.visible)
            compare(Fixture.profileNames(), ["Profile 1", "Profile 2"])

            const again = askToDelete(page, 0)
            mouseClick(dialogButton(again, "deleteButton"))
            tryCompare(page, "profileCount", 1)
            compare(Fixture.profileNames(), ["Profile 2"])
            compare(ProfilesFixture.savedProfileNames(), ["Profile 2"])
            compare(ProfilesFixture.homeFileText(".ssh/id_ed25519"), "private\n")
            compare(ProfilesFixture.homeFileText(".ssh/id_ed25519.pub"), "public\n")
        }

        function test_deleteProfileOnlyKeepsTheKeyFiles() {
            keyProfiles()
            const page = makePage()
            const dialog = askToDelete(page, 0)
            compare(findChild(dialog.contentItem, "dialogTitle").text, "Delete Profile")
            compare(findChild(dialog.contentItem, "dialogMessage").text,
                    "This profile has an SSH key associated with it. Would you also like to delete the SSH key file?")
            verify(!dialogButton(dialog, "deleteButton").visible)
            compare(dialogButton(dialog, "deleteProfileOnlyButton").text, "Delete Profile Only")
            compare(dialogButton(dialog, "deleteProfileAndKeyButton").text,
                    "Delete Profile and SSH Key")
            verify(dialogButton(dialog, "cancelButton").visible)
            // In this order, top to bottom.
            verify(dialogButton(dialog, "deleteProfileOnlyButton").y
                   < dialogButton(dialog, "deleteProfileAndKeyButton").y)
            verify(dialogButton(dialog, "deleteProfileAndKeyButton").y
                   < dialogButton(dialog, "cancelButton").y)

            mouseClick(dialogButton(dialog, "deleteProfileOnlyButton"))
            tryCompare(page, "profileCount", 1)
            compare(ProfilesFixture.savedProfileNames(), ["Home"])
            verify(ProfilesFixture.homeFileExists(".ssh/id_work"))
            verify(ProfilesFixture.homeFileExists(".ssh/id_work.pub"))
        }

        function test_deleteProfileAndKeyRemovesBothFiles() {
            keyProfiles()
            const page = makePage()
            const dialog = askToDelete(page, 0)
            mouseClick(dialogButton(dialog, "deleteProfileAndKeyButton"))
            tryCompare(page, "profileCount", 1)
            compare(ProfilesFixture.savedProfileNames(), ["Home"])
            verify(!ProfilesFixture.homeFileExists(".ssh/id_work"))
            verify(!ProfilesFixture.homeFileExists(".ssh/id_work.pub"))
        }

        function test_deleteProfileAndKeyWithAFileMissing() {
            keyProfiles()
            ProfilesFixture.removeHomeFolder(".ssh")
            ProfilesFixture.writeHomeFile(".ssh/id_work.pub", "ssh-ed25519 AAAA ada\n")
            const page = makePage()
            mouseClick(dialogButton(askToDelete(page, 0), "deleteProfileAndKeyButton"))
            tryCompare(page, "profileCount", 1)
            verify(!ProfilesFixture.homeFileExists(".ssh/id_work.pub"))
            compare(ProfilesFixture.savedProfileNames(), ["Home"])

            // Neither file there: the profile still goes.
            ProfilesFixture.arrangeProfiles([{ name: "Gone", gitName: "G", gitEmail: "g@example.com",
                                               sshKeyPath: "~/.ssh/nothing" }], -1)
            tryCompare(page, "profileCount", 1)
            mouseClick(dialogButton(askToDelete(page, 0), "deleteProfileAndKeyButton"))
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
            const page = makePage()
            const dialog = askToDelete(page, 0)
            compare(findChild(dialog.contentItem, "dialogMessage").text,
                    "This profile has an SSH key associated with it. Would you also like to delete the SSH key file?"
                    + " The same key is also used by \"Client\".")
            mouseClick(dialogButton(dialog, "deleteProfileOnlyButton"))
            tryCompare(page, "profileCount", 2)
            // A key no other profile uses: the fixed text alone.
            compare(findChild(askToDelete(page, 1).contentItem, "dialogMessage").text,
                    "This profile has an SSH key associated with it. Would you also like to delete the SSH key file?")
        }

        function test_keyOutsideSshIsKeptAndTheUserIsTold() {
            ProfilesFixture.writeHomeFile("notes.txt", "mine\n")
            ProfilesFixture.arrangeProfiles([
                { name: "Evil", gitName: "E", gitEmail: "e@example.com", sshKeyPath: "~/.ssh/../notes.txt" },
                { name: "Home", gitName: "H", gitEmail: "h@example.com", sshKeyPath: "" }], -1)
            const page = makePage()
            verify(!findChild(page, "keyDeletionMessage").visible)
            mouseClick(dialogButton(askToDelete(page, 0), "deleteProfileAndKeyButton"))
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
            const page = makePage()
            mouseClick(findChild(row(page, 0), "activateButton"))
            compare(Fixture.globalGitName(), "User 1")
            tryVerify(() => row(page, 0).isActive)

            mouseClick(dialogButton(askToDelete(page, 0), "deleteButton"))
            tryCompare(page, "profileCount", 1)
            compare(Fixture.activeProfileID(), "")
            verify(!row(page, 0).isActive)
            compare(Fixture.globalGitName(), "User 1")
        }

        function test_editorOpensForTheRow() {
            Fixture.arrange(2, false, false)
            const page = makePage()
            mouseClick(rowButton(page, 1, "editButton"))
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
            const page = makePage()
            mouseClick(rowButton(page, 1, "editButton"))
            const editor = page.editorSheet
            typeInto(findChild(editor, "nameField"), "Renamed")
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
            const page = makePage()
            mouseClick(rowButton(page, 0, "editButton"))
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
            const page = makePage()
            mouseClick(findChild(page, "addButton"))
            verify(page.isAddingProfile)
            let editor = page.editorSheet
            compare(editor.title, "New Profile")
            verify(!findChild(editor, "saveButton").enabled)
            fillEditor(editor, "Work", "Ada", "ada@work.example")
            mouseClick(findChild(editor, "saveButton"))
            verify(!page.isAddingProfile)
            compare(Fixture.profileNames(), ["Profile 1", "Work"])

            mouseClick(findChild(page, "addButton"))
            editor = page.editorSheet
            compare(editor.form.name, "")
            fillEditor(editor, "Home", "Ada L", "ada@home.example")
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
            mouseClick(findChild(row(page, 2), "activateButton"))
            tryVerify(() => row(page, 1).isActive && row(page, 2).isActive && !row(page, 0).isActive)

            // Deleting one removes both.
            mouseClick(dialogButton(askToDelete(page, 1), "deleteButton"))
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
            const page = makePage()
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
            const page = makePage()
            mouseClick(findChild(page, "scanButton"))
            const sheet = page.scanSheet
            tryCompare(sheet.session, "isScanning", false)
            compare(findChild(sheet, "createdText").text, "0 profiles created")
            mouseClick(findChild(sheet, "doneButton"))
            compare(page.scanSheet, null)
            compare(Fixture.profileNames(), ["Profile 1"])
            compare(ProfilesFixture.homeFileText(".git-switcher/profiles.json"), before)
        }
    }
}
