// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The profile editor's commit-signing section: where it stands, what it offers, what Save
// stores, and a key that cannot sign keeping the sheet open.
Item {
    width: 500
    height: 680

    Item {
        id: stage
        anchors.fill: parent
    }

    readonly property QtObject actions: ProfileActions

    TestCase {
        id: testCase
        name: "SigningSection"
        when: windowShown

        ProfileEditorDriver {
            id: driver
            testCase: testCase
            stage: stage
        }

        function init() {
            ProfilesFixture.removeHomeFolder(".ssh")
            ProfilesFixture.removeHomeFolder(".kivora")
            ProfilesFixture.makeHomeFolder(".ssh")
            for (const name of ["id_work", "id_alpha"]) {
                compare(ProfilesFixture.runSSHKeygen(["-q", "-t", "ed25519", "-N", "", "-f",
                                                      ProfilesFixture.homePath() + "/.ssh/" + name]), 0)
            }
            ProfilesFixture.arrangeProfiles([{ name: "Work", gitName: "Ada", gitEmail: "ada@work.example",
                                               sshKeyPath: "~/.ssh/id_work" }], -1)
        }

        function makeEditor() {
            return driver.makeEditor(actions.profileAt(0))
        }

        function signingFile() {
            const text = ProfilesFixture.homeFileText(".kivora/signing.json")
            return text.length > 0 ? JSON.parse(text) : ({})
        }

        function test_sectionComesAfterTheDescribedOnes() {
            const editor = makeEditor()
            const section = findChild(editor, "signingSection")
            compare(section.title, "Commit Signing (Optional)")
            const column = findChild(editor, "formColumn")
            const titles = []
            for (let i = 0; i < column.children.length; ++i) {
                if (column.children[i].title !== undefined) {
                    titles.push(column.children[i].title)
                }
            }
            compare(titles.slice(0, 5), ["Profile Name", "Git Configuration", "SSH Key (Optional)",
                                         "AI Configuration (Optional)", "Commit Signing (Optional)"])
        }

        function test_ownPublicKeyIsOfferedFirst() {
            const editor = makeEditor()
            const picker = findChild(editor, "signingKeyPicker")
            compare(picker.model, ["~/.ssh/id_work.pub", "~/.ssh/id_alpha.pub"])
            // A profile without a key is offered every key in the folder.
            editor.form.sshKeyPath = ""
            compare(picker.model, ["~/.ssh/id_alpha.pub", "~/.ssh/id_work.pub"])
        }

        function test_saveStoresTheSigningByProfileId() {
            const editor = makeEditor()
            const section = findChild(editor, "signingSection")
            section.form.key = "~/.ssh/id_work.pub"
            section.form.signCommits = true
            editor.save()
            compare(driver.savedSpy.count, 1)
            compare(driver.dismissedSpy.count, 1)
            const stored = signingFile()[actions.profileAt(0).id]
            compare(stored.key, "~/.ssh/id_work.pub")
            compare(stored.format, "ssh")
            compare(stored.signCommits, true)
            // The editor opened again shows what was stored.
            const again = makeEditor()
            compare(findChild(again, "signingKeyField").text, "~/.ssh/id_work.pub")
            verify(findChild(again, "signCommitsSwitch").checked)
        }

        function test_unreadableKeyKeepsTheSheetOpen() {
            const editor = makeEditor()
            const section = findChild(editor, "signingSection")
            section.form.key = "~/.ssh/missing.pub"
            const status = findChild(editor, "signingStatus")
            verify(status.visible)
            verify(status.text.indexOf("~/.ssh/missing.pub") >= 0)
            editor.save()
            compare(driver.savedSpy.count, 0)
            compare(driver.dismissedSpy.count, 0)
            verify(!ProfilesFixture.homeFileExists(".kivora/signing.json"))
        }

        function test_signingWithoutAKeyIsRefused() {
            const editor = makeEditor()
            const section = findChild(editor, "signingSection")
            section.form.signCommits = true
            editor.save()
            compare(driver.savedSpy.count, 0)
            compare(findChild(editor, "signingStatus").text, "Choose a signing key to sign commits.")
        }

        function test_openPGPKeyNeedsNoFile() {
            const editor = makeEditor()
            const section = findChild(editor, "signingSection")
            section.form.key = "3AA5C34371567BD2"
            compare(section.form.format, "openpgp")
            section.form.signCommits = true
            editor.save()
            compare(driver.savedSpy.count, 1)
            compare(signingFile()[actions.profileAt(0).id].format, "openpgp")
        }
    }
}
