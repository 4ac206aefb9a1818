// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The profile editor's AI section: providers, models, the fields each provider uses, and the
// connection test against a server on 127.0.0.1. The TestCase item itself is invisible, so
// the sheet is made on a visible stage beside it.
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
        name: "ProfileEditorAI"
        when: windowShown

        ProfileEditorDriver {
            id: driver
            testCase: testCase
            stage: stage
        }

        function test_providerSymbols() {
            const editor = driver.makeEditor(actions.profileTemplate())
            compare(editor.form.providerSymbol("OpenAI"), "sparkles")
            compare(editor.form.providerSymbol("Anthropic"), "brain.head.profile")
            compare(editor.form.providerSymbol("Google"), "g.circle")
            compare(editor.form.providerSymbol("Local"), "desktopcomputer")
            compare(editor.form.providerSymbol("Azure OpenAI"), "cloud.fill")
        }

        function test_switchingProviders() {
            const editor = driver.makeEditor(actions.profileTemplate())
            driver.press(editor, "aiEnabledSwitch")
            driver.pick(driver.field(editor, "modelPicker"), "gpt-4-turbo")
            compare(editor.form.model, "gpt-4-turbo")

            driver.pick(driver.field(editor, "providerPicker"), "Local")
            compare(editor.form.providerName, "Local")
            compare(editor.form.model, "llama")
            compare(driver.field(editor, "modelPicker").model, ["llama", "mistral", "codellama"])
            verify(!driver.field(editor, "apiKeyRow").visible)
            verify(driver.field(editor, "baseURLRow").visible)
            verify(driver.field(editor, "localHint").visible)
            compare(driver.field(editor, "localHint").text, "e.g., http://localhost:11434")

            driver.pick(driver.field(editor, "providerPicker"), "Azure OpenAI")
            compare(editor.form.model, "gpt-4")
            compare(driver.field(editor, "modelPicker").model, ["gpt-4", "gpt-35-turbo"])
            verify(driver.field(editor, "baseURLRow").visible)
            verify(!driver.field(editor, "localHint").visible)
            verify(driver.field(editor, "apiKeyRow").visible)

            driver.pick(driver.field(editor, "providerPicker"), "Anthropic")
            compare(editor.form.model, "claude-3-5-sonnet")
            verify(!driver.field(editor, "baseURLRow").visible)

            driver.pick(driver.field(editor, "providerPicker"), "Google")
            compare(editor.form.model, "gemini-1.5-pro")
        }

        function test_aiFieldsAreStoredWhenSwitchedOff() {
            const editor = driver.makeEditor(actions.profileTemplate())
            editor.form.name = "N"
            editor.form.gitName = "G"
            editor.form.gitEmail = "e@example.com"
            driver.press(editor, "aiEnabledSwitch")
            driver.pick(driver.field(editor, "providerPicker"), "Local")
            driver.typeInto(driver.field(editor, "baseURLField"), "http://box:11434")
            driver.press(editor, "aiEnabledSwitch")
            verify(!editor.form.aiEnabled)
            driver.press(editor, "saveButton")
            const saved = driver.savedSpy.signalArguments[0][0]
            compare(saved.aiConfig.isEnabled, false)
            compare(saved.aiConfig.provider, "Local")
            compare(saved.aiConfig.model, "llama")
            compare(saved.aiConfig.baseURL, "http://box:11434")
        }

        function test_anthropicWithoutKeyFailsAtOnce() {
            const editor = driver.makeEditor(actions.profileTemplate())
            driver.press(editor, "aiEnabledSwitch")
            driver.pick(driver.field(editor, "providerPicker"), "Anthropic")
            driver.press(editor, "testConnectionButton")
            // Delivered before the click returns.
            compare(editor.form.testingConnection, false)
            compare(editor.form.connectionSuccess, false)
            compare(editor.form.connectionStatus, "API key not configured")
            verify(driver.field(editor, "connectionStatusLine").visible)
            compare(driver.field(editor, "connectionStatusText").text, "API key not configured")
            compare(driver.field(editor, "connectionStatusMark").name, "xmark.circle.fill")
            compare(driver.field(editor, "connectionStatusMark").color, Theme.red)
        }

        function test_localServerAnswers() {
            const address = ProfilesFixture.startModelServer(200)
            const editor = driver.makeEditor(actions.profileTemplate())
            driver.press(editor, "aiEnabledSwitch")
            driver.pick(driver.field(editor, "providerPicker"), "Local")
            driver.typeInto(driver.field(editor, "baseURLField"), address)
            compare(editor.form.baseURL, address)
            driver.press(editor, "testConnectionButton")
            tryCompare(editor.form, "testingConnection", false, 20000)
            verify(!findChild(driver.field(editor, "testConnectionButton"), "spinner").visible)
            compare(editor.form.connectionSuccess, true)
            compare(editor.form.connectionStatus, "Connected to local AI server successfully")
            compare(driver.field(editor, "connectionStatusMark").name, "checkmark.circle.fill")
            compare(driver.field(editor, "connectionStatusMark").color, Theme.green)
            compare(ProfilesFixture.modelServerRequests(), ["GET /api/tags"])

            // A second test clears the old status while it runs. A server that answers with
            // anything but 200 is a failure.
            const failing = ProfilesFixture.startModelServer(401)
            driver.typeInto(driver.field(editor, "baseURLField"), failing)
            driver.press(editor, "testConnectionButton")
            tryCompare(editor.form, "testingConnection", false, 20000)
            compare(editor.form.connectionSuccess, false)
            compare(editor.form.connectionStatus, "Could not connect to local server")
            compare(driver.field(editor, "connectionStatusMark").color, Theme.red)
        }

        function test_spinnerWhileTheServerIsSilent() {
            const address = ProfilesFixture.startSilentServer()
            const editor = driver.makeEditor(actions.profileTemplate())
            driver.press(editor, "aiEnabledSwitch")
            driver.pick(driver.field(editor, "providerPicker"), "Local")
            editor.form.connectionStatus = "an earlier verdict"
            driver.typeInto(driver.field(editor, "baseURLField"), address)
            driver.press(editor, "testConnectionButton")
            // No answer comes: the button shows its spinner and the old status is gone.
            verify(editor.form.testingConnection)
            verify(findChild(driver.field(editor, "testConnectionButton"), "spinner").visible)
            compare(editor.form.connectionStatus, null)
            verify(!driver.field(editor, "connectionStatusLine").visible)
        }

        // A verdict speaks of the provider it tested: another provider clears it.
        function test_switchingProviderClearsTheVerdict() {
            const editor = driver.makeEditor(actions.profileTemplate())
            driver.press(editor, "aiEnabledSwitch")
            driver.pick(driver.field(editor, "providerPicker"), "Anthropic")
            driver.press(editor, "testConnectionButton")
            verify(driver.field(editor, "connectionStatusLine").visible)
            driver.pick(driver.field(editor, "providerPicker"), "Google")
            compare(editor.form.connectionStatus, null)
            verify(!driver.field(editor, "connectionStatusLine").visible)
        }

        // In a sheet as short as one that fits the settings window, switching AI on brings
        // "Test Connection" into view.
        function test_enablingAIShowsTheTestButton() {
            const editor = driver.makeEditor(actions.profileTemplate())
            editor.anchors.fill = undefined
            editor.height = 602
            waitForRendering(editor)
            const view = driver.field(editor, "formScroll")
            const button = driver.field(editor, "testConnectionButton")
            driver.press(editor, "aiEnabledSwitch")
            verify(editor.form.aiEnabled)
            tryVerify(() => {
                const top = button.mapToItem(view, 0, 0).y
                return button.visible && top >= 0 && top + button.height <= view.height
            }, 5000)
        }
    }
}
