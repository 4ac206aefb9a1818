// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// Key generation from the profile editor with the real ssh-keygen in the temporary home.
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
        name: "GenerateKeySheet"
        when: windowShown

        ProfileEditorDriver {
            id: driver
            testCase: testCase
            stage: stage
        }

        function init() {
            ProfilesFixture.removeHomeFolder(".ssh")
            ProfilesFixture.makeHomeFolder(".ssh")
            ProfilesFixture.setClipboardText("before")
        }

        function makeEditor(gitEmail) {
            const editor = driver.makeEditor(actions.profileTemplate())
            editor.form.gitEmail = gitEmail
            return editor
        }

        // Opens the generation form from the editor's "Generate" button.
        function openForm(editor) {
            mouseClick(findChild(editor, "generateButton"))
            verify(editor.form.showGenerateKeySheet)
            const form = editor.generateKeySheet
            verify(form)
            waitForRendering(form)
            return form
        }

        function generate(form) {
            mouseClick(findChild(form, "generateButton"))
        }

        function publicKeyComment(name) {
            const parts = ProfilesFixture.homeFileText(".ssh/" + name + ".pub").trim().split(" ")
            return parts[parts.length - 1]
        }

        function test_formLayout() {
            const editor = makeEditor("ada@example.com")
            const form = openForm(editor)
            compare(form.Window.window.width, 400)
            compare(form.Window.window.title, "Generate SSH Key")
            compare(findChild(form, "sheetTitle").text, "Generate SSH Key")
            compare(findChild(form, "keyFilenameField").placeholderText,
                    "Filename (leave blank for id_ed25519)")
            compare(findChild(form, "passphraseSwitch").text, "Protect with passphrase")
            verify(!findChild(form, "passphraseField").visible)
            mouseClick(findChild(form, "passphraseSwitch"))
            verify(findChild(form, "passphraseField").visible)
            compare(findChild(form, "passphraseField").placeholderText, "Passphrase")
            compare(findChild(form, "passphraseField").echoMode, TextInput.Password)
            compare(findChild(form, "cancelButton").text, "Cancel")
            compare(findChild(form, "generateButton").text, "Generate")
            verify(findChild(form, "generateButton").enabled)
        }

        function test_defaultKeyIsMadeCopiedAndConfirmed() {
            const editor = makeEditor("ada@example.com")
            generate(openForm(editor))
            // The form closes as soon as ssh-keygen has finished.
            verify(!editor.form.showGenerateKeySheet)
            compare(editor.generateKeySheet, null)
            verify(ProfilesFixture.homeFileExists(".ssh/id_ed25519"))
            verify(ProfilesFixture.homeFileExists(".ssh/id_ed25519.pub"))
            compare(publicKeyComment("id_ed25519"), "ada@example.com")
            compare(editor.form.sshKeyPath, "~/.ssh/id_ed25519")
            compare(findChild(editor, "sshKeyPathField").text, "~/.ssh/id_ed25519")
            // No passphrase: the key opens with an empty one.
            compare(ProfilesFixture.runSSHKeygen(["-y", "-P", "", "-f",
                                                  ProfilesFixture.homePath() + "/.ssh/id_ed25519"]), 0)

            // The copy happens half a second later, not at once.
            verify(!editor.form.showCopyKeySheet)
            tryCompare(editor.form, "showCopyKeySheet", true, 5000)
            compare(ProfilesFixture.clipboardText(),
                    ProfilesFixture.homeFileText(".ssh/id_ed25519.pub"))
            verify(ProfilesFixture.clipboardText().endsWith("\n"))

            const confirmation = editor.copyKeySheet
            verify(confirmation)
            compare(confirmation.Window.window.width, 400)
            compare(findChild(confirmation, "sheetTitle").text, "SSH Key Generated!")
            compare(findChild(confirmation, "copiedText").text,
                    "Your public key has been copied to clipboard.")
            compare(findChild(confirmation, "instructionText").text,
                    "Paste your key in GitHub Settings → SSH and GPG keys → New SSH key")
            const open = findChild(confirmation, "openKeySettingsButton")
            compare(open.text, "Open GitHub SSH Keys")
            compare(open.symbol, "arrow.up.forward.square")
            mouseClick(open)
            compare(ProfilesFixture.openedUrls()[ProfilesFixture.openedUrls().length - 1],
                    "https://github.com/settings/keys")
            mouseClick(findChild(confirmation, "doneButton"))
            verify(!editor.form.showCopyKeySheet)
            compare(editor.copyKeySheet, null)
        }

        function test_passphraseEncryptsTheKey() {
            const editor = makeEditor("ada@example.com")
            const form = openForm(editor)
            driver.typeInto(findChild(form, "keyFilenameField"), "locked")
            mouseClick(findChild(form, "passphraseSwitch"))
            driver.typeInto(findChild(form, "passphraseField"), "open sesame")
            compare(editor.form.keyFilename, "locked")
            compare(editor.form.usePassphrase, true)
            compare(editor.form.passphrase, "open sesame")
            generate(form)
            compare(editor.form.sshKeyPath, "~/.ssh/locked")
            const key = ProfilesFixture.homePath() + "/.ssh/locked"
            verify(ProfilesFixture.runSSHKeygen(["-y", "-P", "", "-f", key]) !== 0)
            compare(ProfilesFixture.runSSHKeygen(["-y", "-P", "open sesame", "-f", key]), 0)
            tryCompare(editor.form, "showCopyKeySheet", true, 5000)
            compare(ProfilesFixture.clipboardText(), ProfilesFixture.homeFileText(".ssh/locked.pub"))
        }

        function test_emptyPassphraseIsNoPassphrase() {
            const editor = makeEditor("ada@example.com")
            const form = openForm(editor)
            driver.typeInto(findChild(form, "keyFilenameField"), "open")
            mouseClick(findChild(form, "passphraseSwitch"))
            generate(form)
            compare(editor.form.sshKeyPath, "~/.ssh/open")
            compare(ProfilesFixture.runSSHKeygen(["-y", "-P", "", "-f",
                                                  ProfilesFixture.homePath() + "/.ssh/open"]), 0)
        }

        function test_emptyEmailGivesThePlaceholderComment() {
            const editor = makeEditor("")
            const form = openForm(editor)
            driver.typeInto(findChild(form, "keyFilenameField"), "anonymous")
            generate(form)
            const comment = publicKeyComment("anonymous")
            verify(comment.endsWith("@example.com"), comment)
        }

        function test_existingKeyIsLeftAlone() {
            ProfilesFixture.writeHomeFile(".ssh/taken", "private\n")
            ProfilesFixture.writeHomeFile(".ssh/taken.pub", "ssh-ed25519 AAAA old\n")
            const editor = makeEditor("ada@example.com")
            editor.form.sshKeyPath = "~/.ssh/other"
            const form = openForm(editor)
            driver.typeInto(findChild(form, "keyFilenameField"), "taken")
            generate(form)
            // The form stays open and says why no key was made.
            verify(editor.form.showGenerateKeySheet)
            const error = findChild(form, "generateError")
            verify(error.visible)
            compare(error.text, "The key could not be generated: " + ProfilesFixture.homePath()
                    + "/.ssh/taken already exists.")
            compare(ProfilesFixture.homeFileText(".ssh/taken"), "private\n")
            compare(ProfilesFixture.homeFileText(".ssh/taken.pub"), "ssh-ed25519 AAAA old\n")
            compare(editor.form.sshKeyPath, "~/.ssh/other")
            // Nothing is copied and no confirmation comes.
            wait(900)
            verify(!editor.form.showCopyKeySheet)
            compare(ProfilesFixture.clipboardText(), "before")
            // What was typed stays, to be corrected; the next attempt uses what is shown.
            compare(editor.form.keyFilename, "taken")
            driver.typeInto(findChild(form, "keyFilenameField"), "untaken")
            generate(form)
            verify(!editor.form.showGenerateKeySheet)
            compare(editor.form.sshKeyPath, "~/.ssh/untaken")
            verify(ProfilesFixture.homeFileExists(".ssh/untaken.pub"))
        }

        function test_missingFolderIsNotCreated() {
            ProfilesFixture.removeHomeFolder(".ssh")
            const editor = makeEditor("ada@example.com")
            const form = openForm(editor)
            generate(form)
            verify(!ProfilesFixture.homeFileExists(".ssh"))
            compare(editor.form.sshKeyPath, "")
            // ssh-keygen's own reason is shown in the form.
            const error = findChild(form, "generateError")
            verify(error.visible)
            verify(error.text.startsWith("The key could not be generated: "), error.text)
            verify(error.text.indexOf("No such file or directory") >= 0, error.text)
        }

        function test_formIsResetAfterAnAttempt() {
            const editor = makeEditor("ada@example.com")
            let form = openForm(editor)
            driver.typeInto(findChild(form, "keyFilenameField"), "fresh")
            mouseClick(findChild(form, "passphraseSwitch"))
            driver.typeInto(findChild(form, "passphraseField"), "pw")
            generate(form)
            compare(editor.form.keyFilename, "")
            compare(editor.form.usePassphrase, false)
            compare(editor.form.passphrase, "")

            form = openForm(editor)
            compare(findChild(form, "keyFilenameField").text, "")
            verify(!findChild(form, "passphraseSwitch").checked)
            verify(!findChild(form, "passphraseField").visible)
            compare(findChild(form, "passphraseField").text, "")
            mouseClick(findChild(form, "cancelButton"))
        }

        function test_cancelKeepsWhatWasTyped() {
            const editor = makeEditor("ada@example.com")
            let form = openForm(editor)
            driver.typeInto(findChild(form, "keyFilenameField"), "later")
            mouseClick(findChild(form, "passphraseSwitch"))
            driver.typeInto(findChild(form, "passphraseField"), "pw")
            mouseClick(findChild(form, "cancelButton"))
            verify(!editor.form.showGenerateKeySheet)
            verify(!ProfilesFixture.homeFileExists(".ssh/later"))
            compare(editor.form.sshKeyPath, "")

            form = openForm(editor)
            compare(findChild(form, "keyFilenameField").text, "later")
            verify(findChild(form, "passphraseSwitch").checked)
            compare(findChild(form, "passphraseField").text, "pw")
            mouseClick(findChild(form, "cancelButton"))
        }
    }
}
