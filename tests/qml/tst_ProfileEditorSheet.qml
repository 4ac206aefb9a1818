// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The TestCase item itself is invisible, so the sheet is made on a visible stage beside it.
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
        name: "ProfileEditorSheet"
        when: windowShown

        ProfileEditorDriver {
            id: driver
            testCase: testCase
            stage: stage
        }

        function test_titleFollowsTheProfileName() {
            compare(driver.makeEditor(actions.profileTemplate()).title, "New Profile")
            ProfilesFixture.arrangeProfiles([{ name: "", gitName: "A", gitEmail: "a@example.com" },
                                             { name: "Work", gitName: "A", gitEmail: "a@example.com" }],
                                            -1)
            const unnamed = driver.makeEditor(actions.profileAt(0))
            compare(unnamed.title, "New Profile")
            compare(driver.field(unnamed, "sheetTitle").text, "New Profile")
            const named = driver.makeEditor(actions.profileAt(1))
            compare(named.title, "Edit Profile")
            compare(driver.field(named, "sheetTitle").text, "Edit Profile")
        }

        function test_templateIsTheSameForEveryNewProfile() {
            compare(actions.profileTemplate().id, actions.profileTemplate().id)
            verify(actions.profileTemplate().id.length === 36)
        }

        function test_fieldsAndPlaceholders() {
            const editor = driver.makeEditor(actions.profileTemplate())
            compare(driver.field(editor, "nameField").placeholderText, "e.g., Personal, Work, Freelance")
            compare(driver.field(editor, "sshKeyPathField").placeholderText, "e.g., ~/.ssh/id_ed25519")
            compare(driver.field(editor, "generateButton").text, "Generate")
            compare(driver.field(editor, "generateButton").symbol, "key.fill")
            compare(driver.field(editor, "aiEnabledSwitch").text, "Enable AI Context")
            compare(editor.form.providerName, "OpenAI")
            compare(editor.form.model, "gpt-4o")
            // The AI details show only while AI is on.
            verify(!driver.field(editor, "aiDetails").visible)
            driver.press(editor, "aiEnabledSwitch")
            verify(editor.form.aiEnabled)
            verify(driver.field(editor, "aiDetails").visible)
            compare(driver.field(editor, "providerPicker").model,
                    ["OpenAI", "Anthropic", "Google", "Azure OpenAI", "Local"])
            compare(driver.field(editor, "modelPicker").model, ["gpt-4o", "gpt-4-turbo", "gpt-3.5-turbo"])
            verify(driver.field(editor, "apiKeyRow").visible)
            compare(driver.field(editor, "apiKeyField").echoMode, TextInput.Password)
            verify(!driver.field(editor, "baseURLRow").visible)
            verify(!driver.field(editor, "connectionStatusLine").visible)
            compare(driver.field(editor, "testConnectionButton").text, "Test Connection")
        }

        function test_editorCopiesTheProfile() {
            ProfilesFixture.arrangeProfiles([{ name: "Work", gitName: "Ada", gitEmail: "ada@work.example",
                                               sshKeyPath: "~/.ssh/id_work", aiEnabled: true,
                                               aiProvider: "Google", aiModel: "gemini-pro",
                                               aiAPIKey: "g-key", aiBaseURL: "" }], -1)
            const editor = driver.makeEditor(actions.profileAt(0))
            compare(driver.field(editor, "nameField").text, "Work")
            compare(driver.field(editor, "gitNameField").text, "Ada")
            compare(driver.field(editor, "gitEmailField").text, "ada@work.example")
            compare(driver.field(editor, "sshKeyPathField").text, "~/.ssh/id_work")
            verify(driver.field(editor, "aiEnabledSwitch").checked)
            compare(editor.form.providerName, "Google")
            // The stored model is kept, not replaced by the provider's default.
            compare(editor.form.model, "gemini-pro")
            compare(driver.field(editor, "modelPicker").displayText, "gemini-pro")
            compare(driver.field(editor, "apiKeyField").text, "g-key")
        }

        function test_saveNeedsNameGitNameAndEmail() {
            const editor = driver.makeEditor(actions.profileTemplate())
            const save = driver.field(editor, "saveButton")
            verify(!save.enabled)
            driver.typeInto(driver.field(editor, "nameField"), "Work")
            verify(!save.enabled)
            driver.typeInto(driver.field(editor, "gitNameField"), "Ada")
            verify(!save.enabled)
            driver.typeInto(driver.field(editor, "gitEmailField"), "ada@example.com")
            verify(save.enabled)
            driver.typeInto(driver.field(editor, "gitNameField"), "")
            verify(!save.enabled)
            // Pressing a disabled Save does nothing.
            mouseClick(save)
            compare(driver.savedSpy.count, 0)
            compare(driver.dismissedSpy.count, 0)
        }

        function test_spacesCountAndAreStored() {
            const editor = driver.makeEditor(actions.profileTemplate())
            driver.typeInto(driver.field(editor, "nameField"), " ")
            driver.typeInto(driver.field(editor, "gitNameField"), " ")
            driver.typeInto(driver.field(editor, "gitEmailField"), " ")
            verify(driver.field(editor, "saveButton").enabled)
            driver.press(editor, "saveButton")
            compare(driver.savedSpy.count, 1)
            compare(driver.dismissedSpy.count, 1)
            const saved = driver.savedSpy.signalArguments[0][0]
            compare(saved.name, " ")
            compare(saved.gitName, " ")
            compare(saved.gitEmail, " ")
            compare(saved.id, actions.profileTemplate().id)
        }

        function test_saveClearsCustomHeadersAndKeepsDisabledAI() {
            ProfilesFixture.arrangeProfiles([{ name: "Work", gitName: "Ada", gitEmail: "ada@work.example",
                                               customHeaders: { "X-Team": "core", "X-Env": "dev" },
                                               aiEnabled: false, aiProvider: "Anthropic",
                                               aiModel: "claude-3-opus", aiAPIKey: "sk-ant" }], -1)
            compare(ProfilesFixture.profileAt(0).customHeaderCount, 2)
            const editor = driver.makeEditor(actions.profileAt(0))
            driver.press(editor, "saveButton")
            compare(driver.savedSpy.count, 1)
            verify(actions.updateProfile(driver.savedSpy.signalArguments[0][0]))
            const stored = ProfilesFixture.profileAt(0)
            compare(stored.customHeaderCount, 0)
            compare(stored.name, "Work")
            compare(stored.aiEnabled, false)
            compare(stored.aiProvider, "Anthropic")
            compare(stored.aiModel, "claude-3-opus")
            compare(stored.aiAPIKey, "sk-ant")
        }

        function test_cancelDismissesWithoutSaving() {
            const editor = driver.makeEditor(actions.profileTemplate())
            editor.form.name = "N"
            editor.form.gitName = "G"
            editor.form.gitEmail = "e@example.com"
            driver.press(editor, "cancelButton")
            compare(driver.dismissedSpy.count, 1)
            compare(driver.savedSpy.count, 0)
        }
    }
}
