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

        Component {
            id: editorComponent
            ProfileEditorSheet {
                objectName: "editor"
                anchors.fill: parent
            }
        }

        SignalSpy {
            id: savedSpy
            signalName: "saved"
        }

        SignalSpy {
            id: dismissedSpy
            signalName: "dismissed"
        }

        function makeEditor(profile) {
            const editor = createTemporaryObject(editorComponent, stage, { profile: profile })
            savedSpy.clear()
            savedSpy.target = editor
            dismissedSpy.clear()
            dismissedSpy.target = editor
            return editor
        }

        function field(editor, name) {
            return findChild(editor, name)
        }

        // Scrolls one of the form's controls into view, once the form's layout has settled.
        function reveal(editor, item) {
            const view = findChild(editor, "formScroll")
            let inForm = false
            for (let parent = item.parent; parent; parent = parent.parent) {
                inForm = inForm || parent === view
            }
            if (!inForm) {
                return
            }
            waitForItemPolished(findChild(editor, "formColumn"))
            tryVerify(() => {
                editor.reveal(item)
                const top = item.mapToItem(view, 0, 0).y
                return top >= 0 && top + item.height <= view.height
            })
            waitForRendering(editor)
            editor.reveal(item)
        }

        // Clicks one of the form's controls, scrolled into view first.
        function press(editor, name) {
            const item = field(editor, name)
            reveal(editor, item)
            mouseClick(item)
        }

        function typeInto(item, text) {
            item.forceActiveFocus()
            item.selectAll()
            keyClick(Qt.Key_Delete)
            for (const character of text) {
                keyClick(character)
            }
        }

        // Chooses an entry of a picker as the user does: the pop-up's row for it.
        function pick(picker, value) {
            let editor = picker.parent
            while (editor && editor.objectName !== "editor") {
                editor = editor.parent
            }
            reveal(editor, picker)
            mouseClick(picker)
            tryVerify(() => picker.popup.opened)
            const index = picker.model.indexOf(value)
            verify(index >= 0, value)
            const list = picker.popup.contentItem
            list.positionViewAtIndex(index, ListView.Contain)
            tryVerify(() => list.itemAtIndex(index) !== null)
            waitForRendering(list)
            mouseClick(list.itemAtIndex(index))
            tryVerify(() => !picker.popup.visible)
        }

        function test_titleFollowsTheProfileName() {
            compare(makeEditor(actions.profileTemplate()).title, "New Profile")
            ProfilesFixture.arrangeProfiles([{ name: "", gitName: "A", gitEmail: "a@example.com" },
                                             { name: "Work", gitName: "A", gitEmail: "a@example.com" }],
                                            -1)
            const unnamed = makeEditor(actions.profileAt(0))
            compare(unnamed.title, "New Profile")
            compare(field(unnamed, "sheetTitle").text, "New Profile")
            const named = makeEditor(actions.profileAt(1))
            compare(named.title, "Edit Profile")
            compare(field(named, "sheetTitle").text, "Edit Profile")
        }

        function test_templateIsTheSameForEveryNewProfile() {
            compare(actions.profileTemplate().id, actions.profileTemplate().id)
            verify(actions.profileTemplate().id.length === 36)
        }

        function test_fieldsAndPlaceholders() {
            const editor = makeEditor(actions.profileTemplate())
            compare(field(editor, "nameField").placeholderText, "e.g., Personal, Work, Freelance")
            compare(field(editor, "sshKeyPathField").placeholderText, "e.g., ~/.ssh/id_ed25519")
            compare(field(editor, "generateButton").text, "Generate")
            compare(field(editor, "generateButton").symbol, "key.fill")
            compare(field(editor, "aiEnabledSwitch").text, "Enable AI Context")
            compare(editor.form.providerName, "OpenAI")
            compare(editor.form.model, "gpt-4o")
            // The AI details show only while AI is on.
            verify(!field(editor, "aiDetails").visible)
            press(editor, "aiEnabledSwitch")
            verify(editor.form.aiEnabled)
            verify(field(editor, "aiDetails").visible)
            compare(field(editor, "providerPicker").model,
                    ["OpenAI", "Anthropic", "Google", "Azure OpenAI", "Local"])
            compare(field(editor, "modelPicker").model, ["gpt-4o", "gpt-4-turbo", "gpt-3.5-turbo"])
            verify(field(editor, "apiKeyRow").visible)
            compare(field(editor, "apiKeyField").echoMode, TextInput.Password)
            verify(!field(editor, "baseURLRow").visible)
            verify(!field(editor, "connectionStatusLine").visible)
            compare(field(editor, "testConnectionButton").text, "Test Connection")
        }

        function test_providerSymbols() {
            const editor = makeEditor(actions.profileTemplate())
            compare(editor.form.providerSymbol("OpenAI"), "sparkles")
            compare(editor.form.providerSymbol("Anthropic"), "brain.head.profile")
            compare(editor.form.providerSymbol("Google"), "g.circle")
            compare(editor.form.providerSymbol("Local"), "desktopcomputer")
            compare(editor.form.providerSymbol("Azure OpenAI"), "cloud.fill")
        }

        function test_editorCopiesTheProfile() {
            ProfilesFixture.arrangeProfiles([{ name: "Work", gitName: "Ada", gitEmail: "ada@work.example",
                                               sshKeyPath: "~/.ssh/id_work", aiEnabled: true,
                                               aiProvider: "Google", aiModel: "gemini-pro",
                                               aiAPIKey: "g-key", aiBaseURL: "" }], -1)
            const editor = makeEditor(actions.profileAt(0))
            compare(field(editor, "nameField").text, "Work")
            compare(field(editor, "gitNameField").text, "Ada")
            compare(field(editor, "gitEmailField").text, "ada@work.example")
            compare(field(editor, "sshKeyPathField").text, "~/.ssh/id_work")
            verify(field(editor, "aiEnabledSwitch").checked)
            compare(editor.form.providerName, "Google")
            // The stored model is kept, not replaced by the provider's default.
            compare(editor.form.model, "gemini-pro")
            compare(field(editor, "modelPicker").displayText, "gemini-pro")
            compare(field(editor, "apiKeyField").text, "g-key")
        }

        function test_saveNeedsNameGitNameAndEmail() {
            const editor = makeEditor(actions.profileTemplate())
            const save = field(editor, "saveButton")
            verify(!save.enabled)
            typeInto(field(editor, "nameField"), "Work")
            verify(!save.enabled)
            typeInto(field(editor, "gitNameField"), "Ada")
            verify(!save.enabled)
            typeInto(field(editor, "gitEmailField"), "ada@example.com")
            verify(save.enabled)
            typeInto(field(editor, "gitNameField"), "")
            verify(!save.enabled)
            // Pressing a disabled Save does nothing.
            mouseClick(save)
            compare(savedSpy.count, 0)
            compare(dismissedSpy.count, 0)
        }

        function test_spacesCountAndAreStored() {
            const editor = makeEditor(actions.profileTemplate())
            typeInto(field(editor, "nameField"), " ")
            typeInto(field(editor, "gitNameField"), " ")
            typeInto(field(editor, "gitEmailField"), " ")
            verify(field(editor, "saveButton").enabled)
            press(editor, "saveButton")
            compare(savedSpy.count, 1)
            compare(dismissedSpy.count, 1)
            const saved = savedSpy.signalArguments[0][0]
            compare(saved.name, " ")
            compare(saved.gitName, " ")
            compare(saved.gitEmail, " ")
            compare(saved.id, actions.profileTemplate().id)
        }

        function test_switchingProviders() {
            const editor = makeEditor(actions.profileTemplate())
            press(editor, "aiEnabledSwitch")
            pick(field(editor, "modelPicker"), "gpt-4-turbo")
            compare(editor.form.model, "gpt-4-turbo")

            pick(field(editor, "providerPicker"), "Local")
            compare(editor.form.providerName, "Local")
            compare(editor.form.model, "llama")
            compare(field(editor, "modelPicker").model, ["llama", "mistral", "codellama"])
            verify(!field(editor, "apiKeyRow").visible)
            verify(field(editor, "baseURLRow").visible)
            verify(field(editor, "localHint").visible)
            compare(field(editor, "localHint").text, "e.g., http://localhost:11434")

            pick(field(editor, "providerPicker"), "Azure OpenAI")
            compare(editor.form.model, "gpt-4")
            compare(field(editor, "modelPicker").model, ["gpt-4", "gpt-35-turbo"])
            verify(field(editor, "baseURLRow").visible)
            verify(!field(editor, "localHint").visible)
            verify(field(editor, "apiKeyRow").visible)

            pick(field(editor, "providerPicker"), "Anthropic")
            compare(editor.form.model, "claude-3-5-sonnet")
            verify(!field(editor, "baseURLRow").visible)

            pick(field(editor, "providerPicker"), "Google")
            compare(editor.form.model, "gemini-1.5-pro")
        }

        function test_saveClearsCustomHeadersAndKeepsDisabledAI() {
            ProfilesFixture.arrangeProfiles([{ name: "Work", gitName: "Ada", gitEmail: "ada@work.example",
                                               customHeaders: { "X-Team": "core", "X-Env": "dev" },
                                               aiEnabled: false, aiProvider: "Anthropic",
                                               aiModel: "claude-3-opus", aiAPIKey: "sk-ant" }], -1)
            compare(ProfilesFixture.profileAt(0).customHeaderCount, 2)
            const editor = makeEditor(actions.profileAt(0))
            press(editor, "saveButton")
            compare(savedSpy.count, 1)
            verify(actions.updateProfile(savedSpy.signalArguments[0][0]))
            const stored = ProfilesFixture.profileAt(0)
            compare(stored.customHeaderCount, 0)
            compare(stored.name, "Work")
            compare(stored.aiEnabled, false)
            compare(stored.aiProvider, "Anthropic")
            compare(stored.aiModel, "claude-3-opus")
            compare(stored.aiAPIKey, "sk-ant")
        }

        function test_aiFieldsAreStoredWhenSwitchedOff() {
            const editor = makeEditor(actions.profileTemplate())
            editor.form.name = "N"
            editor.form.gitName = "G"
            editor.form.gitEmail = "e@example.com"
            press(editor, "aiEnabledSwitch")
            pick(field(editor, "providerPicker"), "Local")
            typeInto(field(editor, "baseURLField"), "http://box:11434")
            press(editor, "aiEnabledSwitch")
            verify(!editor.form.aiEnabled)
            press(editor, "saveButton")
            const saved = savedSpy.signalArguments[0][0]
            compare(saved.aiConfig.isEnabled, false)
            compare(saved.aiConfig.provider, "Local")
            compare(saved.aiConfig.model, "llama")
            compare(saved.aiConfig.baseURL, "http://box:11434")
        }

        function test_anthropicWithoutKeyFailsAtOnce() {
            const editor = makeEditor(actions.profileTemplate())
            press(editor, "aiEnabledSwitch")
            pick(field(editor, "providerPicker"), "Anthropic")
            press(editor, "testConnectionButton")
            // Delivered before the click returns.
            compare(editor.form.testingConnection, false)
            compare(editor.form.connectionSuccess, false)
            compare(editor.form.connectionStatus, "API key not configured")
            verify(field(editor, "connectionStatusLine").visible)
            compare(field(editor, "connectionStatusText").text, "API key not configured")
            compare(field(editor, "connectionStatusMark").name, "xmark.circle.fill")
            compare(field(editor, "connectionStatusMark").color, Theme.red)
        }

        function test_localServerAnswers() {
            const address = ProfilesFixture.startModelServer(200)
            const editor = makeEditor(actions.profileTemplate())
            press(editor, "aiEnabledSwitch")
            pick(field(editor, "providerPicker"), "Local")
            typeInto(field(editor, "baseURLField"), address)
            compare(editor.form.baseURL, address)
            press(editor, "testConnectionButton")
            tryCompare(editor.form, "testingConnection", false, 20000)
            verify(!findChild(field(editor, "testConnectionButton"), "spinner").visible)
            compare(editor.form.connectionSuccess, true)
            compare(editor.form.connectionStatus, "Connected to local AI server successfully")
            compare(field(editor, "connectionStatusMark").name, "checkmark.circle.fill")
            compare(field(editor, "connectionStatusMark").color, Theme.green)
            compare(ProfilesFixture.modelServerRequests(), ["GET /api/tags"])

            // A second test clears the old status while it runs. A server that answers with
            // anything but 200 is a failure.
            const failing = ProfilesFixture.startModelServer(401)
            typeInto(field(editor, "baseURLField"), failing)
            press(editor, "testConnectionButton")
            tryCompare(editor.form, "testingConnection", false, 20000)
            compare(editor.form.connectionSuccess, false)
            compare(editor.form.connectionStatus, "Could not connect to local server")
            compare(field(editor, "connectionStatusMark").color, Theme.red)
        }

        function test_spinnerWhileTheServerIsSilent() {
            const address = ProfilesFixture.startSilentServer()
            const editor = makeEditor(actions.profileTemplate())
            press(editor, "aiEnabledSwitch")
            pick(field(editor, "providerPicker"), "Local")
            editor.form.connectionStatus = "an earlier verdict"
            typeInto(field(editor, "baseURLField"), address)
            press(editor, "testConnectionButton")
            // No answer comes: the button shows its spinner and the old status is gone.
            verify(editor.form.testingConnection)
            verify(findChild(field(editor, "testConnectionButton"), "spinner").visible)
            compare(editor.form.connectionStatus, null)
            verify(!field(editor, "connectionStatusLine").visible)
        }

        function test_cancelDismissesWithoutSaving() {
            const editor = makeEditor(actions.profileTemplate())
            editor.form.name = "N"
            editor.form.gitName = "G"
            editor.form.gitEmail = "e@example.com"
            press(editor, "cancelButton")
            compare(dismissedSpy.count, 1)
            compare(savedSpy.count, 0)
        }
    }
}
