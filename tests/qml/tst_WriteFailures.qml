// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// When the profile file cannot be written (here ~/.git-switcher is a plain file), the window
// where the user acted says so in one sentence: the popover for a switch or a row's deletion,
// the profiles page, the editor (which stays open) and the settings window for an import. An
// import file that is not a list of profiles says why as well.
Item {
    width: 1100
    height: 800

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "WriteFailures"
        when: windowShown

        readonly property string reason: "Not a directory"

        Component {
            id: popoverComponent
            MenuBarView {}
        }

        Component {
            id: pageComponent
            ProfilesSettingsView {
                width: 840
                height: 650
            }
        }

        Component {
            id: settingsComponent
            SettingsView {
                width: 1100
                height: 650
            }
        }

        function init() {
            ProfilesFixture.replaceFileWithFolder(".git-switcher")
            Fixture.arrange(2, true, false)
        }

        function cleanup() {
            ProfilesFixture.replaceFileWithFolder(".git-switcher")
        }

        function blockTheProfileFile() {
            verify(ProfilesFixture.replaceFolderWithFile(".git-switcher"))
        }

        function verifySentence(item) {
            verify(item, "no error text")
            tryVerify(() => item.visible)
            verify(item.text.indexOf("The profiles could not be saved to " + ProfilesFixture.homePath()
                                     + "/.git-switcher/profiles.json") === 0, item.text)
            verify(item.text.indexOf(reason) > 0, item.text)
            verify(item.text.endsWith("."), item.text)
        }

        function test_popoverSwitch() {
            const view = createTemporaryObject(popoverComponent, stage)
            verify(!findChild(view, "actionError").visible)
            blockTheProfileFile()
            const row = findChild(view, "profileRow:Profile 2")
            waitForRendering(view)
            mouseClick(row, 40, row.height / 2)
            compare(Fixture.globalGitName(), "User 2")
            verifySentence(findChild(view, "actionError"))
            // No "Switched" mark for a switch that did not go through.
            compare(view.justSwitched, "")
        }

        function test_popoverDeletion() {
            const view = createTemporaryObject(popoverComponent, stage)
            blockTheProfileFile()
            verify(!view.profiles.remove(Fixture.profileIds()[1]))
            verifySentence(findChild(view, "actionError"))
            compare(view.profiles.count, 2)
        }

        function test_profilesPageDeletion() {
            const page = createTemporaryObject(pageComponent, stage)
            waitForRendering(page)
            blockTheProfileFile()
            page.deleteProfile(rowProfile(page, 0), false)
            verifySentence(findChild(page, "actionError"))
            compare(page.profileCount, 2)
        }

        function rowProfile(page, index) {
            return findChild(page, "profileRow:" + index).profile
        }

        function test_profilesPageSwitch() {
            const page = createTemporaryObject(pageComponent, stage)
            waitForRendering(page)
            blockTheProfileFile()
            page.activate(rowProfile(page, 1))
            verifySentence(findChild(page, "actionError"))
        }

        function test_editorStaysOpenWithTheReason() {
            const page = createTemporaryObject(pageComponent, stage)
            waitForRendering(page)
            mouseClick(findChild(page, "addButton"))
            const editor = page.editorSheet
            verify(editor)
            editor.form.name = "Work"
            editor.form.gitName = "Ada"
            editor.form.gitEmail = "ada@work.example"
            blockTheProfileFile()
            mouseClick(findChild(editor, "saveButton"))
            // Still open, with the sentence beside Save.
            verify(page.editorSheet === editor)
            verifySentence(findChild(editor, "saveError"))
            waitForRendering(editor)
            compare(Fixture.profileNames(), ["Profile 1", "Profile 2"])

            // Once the file can be written again, Save goes through and the sheet closes.
            ProfilesFixture.replaceFileWithFolder(".git-switcher")
            mouseClick(findChild(editor, "saveButton"))
            tryCompare(page, "editorSheet", null)
            compare(ProfilesFixture.savedProfileNames(), ["Profile 1", "Profile 2", "Work"])
        }

        function test_importIntoAProfileFileThatCannotBeWritten() {
            const view = createTemporaryObject(settingsComponent, stage)
            verify(view.exportProfiles(Fixture.homeFile("export.json")))
            blockTheProfileFile()
            compare(view.importProfiles(Fixture.homeFile("export.json")), 0)
            const error = findChild(view, "transferError")
            verifySentence(error)
            verify(error.text.endsWith("; nothing was imported."), error.text)
            compare(Fixture.profileNames(), ["Profile 1", "Profile 2"])
        }

        function test_importOfSomethingElse() {
            const view = createTemporaryObject(settingsComponent, stage)
            // The profile file itself is an object, not a list of profiles.
            compare(view.importProfiles(Fixture.homeFile(".git-switcher/profiles.json")), 0)
            const error = findChild(view, "transferError")
            tryVerify(() => error.visible)
            verify(error.text.indexOf("is not a profile export") > 0, error.text)
            verify(error.text.endsWith("nothing was imported."), error.text)
            // A file that cannot be read at all.
            compare(view.importProfiles(Fixture.homeFile("missing.json")), 0)
            verify(error.text.startsWith("Cannot read " + ProfilesFixture.homePath() + "/missing.json"),
                   error.text)
            // A good import puts the sentence away.
            verify(view.exportProfiles(Fixture.homeFile("export.json")))
            compare(view.importProfiles(Fixture.homeFile("export.json")), 2)
            verify(!error.visible)
        }
    }
}
