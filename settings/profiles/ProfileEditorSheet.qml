import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Window
import QtQml.Models
import Kivora

// The sheet in which one profile is created or edited: display name, git identity, SSH key
// (typed, or generated here) and the optional AI configuration with its connection test. It
// hands the finished profile to `saved` and never changes the profile list itself.
Rectangle {
    id: editor

    // The profile edited (a gitProfile); for a new profile the shared empty template.
    property var profile

    // Why the profile handed to `saved` could not be stored; set by the page that handles it,
    // and the sheet then stays open with it.
    property string saveError: ""

    // Emitted by Save with the finished profile; the sheet is dismissed right after.
    signal saved(var profile)
    signal dismissed()

    // The form's state, copied from `profile` when the sheet appears.
    property string name: ""
    property string gitName: ""
    property string gitEmail: ""
    property string sshKeyPath: ""
    property bool showGenerateKeySheet: false
    property string keyFilename: ""
    property bool usePassphrase: false
    property string passphrase: ""
    property bool aiEnabled: false
    property string aiProvider: "OpenAI"
    property string aiModel: "gpt-4o"
    property string aiAPIKey: ""
    property string aiBaseURL: ""
    property bool testingConnection: false
    // The message of the last connection test, or null before the first.
    property var connectionStatus: null
    property bool connectionSuccess: false
    property bool showCopyKeySheet: false

    readonly property bool isValid: name.length > 0 && gitName.length > 0 && gitEmail.length > 0
    readonly property string title: profile && profile.name.length > 0 ? "Edit Profile"
                                                                         : "New Profile"
    readonly property bool showsAPIKey: aiProvider !== "Local"
    readonly property bool showsBaseURL: aiProvider === "Local" || aiProvider === "Azure OpenAI"

    // The key sheets shown on top of this one (null when closed).
    readonly property Item generateKeySheet: generateInstance.object
                                             ? (generateInstance.object as SheetWindow).sheet : null
    readonly property Item copyKeySheet: copyInstance.object
                                         ? (copyInstance.object as SheetWindow).sheet : null

    property bool loaded: false
    // Set once Save has handed the profile on.
    property bool profileSaved: false
    // The file name of the key whose public half is copied shortly after its generation.
    property string pendingPublicKey: ""

    // The symbol of each provider in the picker.
    readonly property var providerSymbols: ({
        "OpenAI": "sparkles",
        "Anthropic": "brain.head.profile",
        "Google": "g.circle",
        "Local": "desktopcomputer",
        "Azure OpenAI": "cloud.fill"
    })

    function providerSymbol(provider: string): string {
        return editor.providerSymbols[provider] ?? ""
    }

    function composedProfile(): var {
        return form.compose(editor.profile, editor.name, editor.gitName, editor.gitEmail,
                            editor.sshKeyPath, editor.aiEnabled, editor.aiProvider,
                            editor.aiModel, editor.aiAPIKey, editor.aiBaseURL)
    }

    function save() {
        if (!editor.isValid) {
            return
        }
        // Signing that cannot be stored keeps the sheet open with the reason under its fields,
        // before anything is saved.
        if (!editor.profileSaved && !signingSection.commit()) {
            editor.reveal(signingSection)
            return
        }
        // The profile goes first, so that its rules find it in the list. When the rules
        // cannot be written the sheet stays open with the reason, and Save tries them again.
        if (!editor.profileSaved) {
            editor.saved(editor.composedProfile())
            if (editor.saveError.length > 0) {
                return
            }
            editor.profileSaved = true
        }
        if (!rulesSection.commit()) {
            editor.reveal(rulesSection)
            return
        }
        editor.dismissed()
    }

    function cancel() {
        editor.dismissed()
    }

    function testConnection() {
        editor.testingConnection = true
        editor.connectionStatus = null
        connectionTest.run(editor.aiEnabled, editor.aiProvider, editor.aiModel, editor.aiAPIKey,
                           editor.aiBaseURL)
    }

    // Runs ssh-keygen (the interface waits for it). A new key's path goes into the form, and
    // half a second later its public key is put on the clipboard; the form's values are reset.
    // A failed run keeps them: the form stays open with the reason, to be corrected.
    function generateSSHKey(): bool {
        const fileName = keyGeneration.keyFileName(editor.keyFilename)
        const keyPath = keyGeneration.generate(editor.gitEmail, editor.keyFilename,
                                               editor.usePassphrase, editor.passphrase)
        if (keyPath.length === 0) {
            return false
        }
        editor.sshKeyPath = keyPath
        editor.pendingPublicKey = fileName
        copyTimer.restart()
        editor.keyFilename = ""
        editor.usePassphrase = false
        editor.passphrase = ""
        return true
    }

    // Scrolls the form so that the item (one of its fields or buttons) is in view.
    function reveal(item: Item) {
        const flick = scroll.contentItem as Flickable
        if (!flick || !item) {
            return
        }
        const top = item.mapToItem(flick.contentItem, 0, 0).y
        if (top < flick.contentY) {
            flick.contentY = Math.max(0, top - 8)
        } else if (top + item.height > flick.contentY + flick.height) {
            flick.contentY = Math.min(flick.contentHeight - flick.height,
                                      top + item.height - flick.height + 8)
        }
    }

    function copyPublicKeyToClipboard(fileName: string): bool {
        return keyGeneration.copyPublicKeyToClipboard(fileName)
    }

    // The field the keyboard is in; the form scrolls to keep it in view.
    readonly property Item focusedItem: Window.activeFocusItem

    implicitWidth: 500
    implicitHeight: 680
    color: Theme.windowBackground

    onFocusedItemChanged: {
        for (let item = editor.focusedItem; item; item = item.parent) {
            if (item === scroll) {
                editor.reveal(editor.focusedItem)
                return
            }
        }
    }

    onAiProviderChanged: {
        if (editor.loaded) {
            editor.aiModel = form.defaultModel(editor.aiProvider)
        }
    }

    Component.onCompleted: {
        if (editor.profile) {
            const config = editor.profile.aiConfig
            editor.name = editor.profile.name
            editor.gitName = editor.profile.gitName
            editor.gitEmail = editor.profile.gitEmail
            editor.sshKeyPath = editor.profile.sshKeyPath
            editor.aiEnabled = config.isEnabled
            editor.aiProvider = config.provider
            editor.aiModel = config.model
            editor.aiAPIKey = config.apiKey
            editor.aiBaseURL = config.baseURL
        }
        editor.loaded = true
        nameField.forceActiveFocus()
    }

    ProfileForm { id: form }

    SSHKeyGeneration { id: keyGeneration }

    ConnectionTest {
        id: connectionTest
        onFinished: (success, message) => {
            editor.testingConnection = false
            editor.connectionSuccess = success
            editor.connectionStatus = message
        }
    }

    Timer {
        id: copyTimer
        interval: 500
        onTriggered: {
            if (editor.copyPublicKeyToClipboard(editor.pendingPublicKey)) {
                editor.showCopyKeySheet = true
            }
        }
    }

    Instantiator {
        id: generateInstance
        active: editor.showGenerateKeySheet
        delegate: SheetWindow {
            title: "Generate SSH Key"
            owner: editor.Window.window
            onDismissRequested: editor.showGenerateKeySheet = false

            GenerateKeySheet {
                objectName: "generateKeySheet"
                keyFilename: editor.keyFilename
                usePassphrase: editor.usePassphrase
                passphrase: editor.passphrase
                onKeyFilenameChanged: editor.keyFilename = keyFilename
                onUsePassphraseChanged: editor.usePassphrase = usePassphrase
                onPassphraseChanged: editor.passphrase = passphrase
                error: keyGeneration.error
                // A failed generation keeps the sheet open with the reason.
                onGenerate: {
                    if (editor.generateSSHKey()) {
                        editor.showGenerateKeySheet = false
                    }
                }
                onCancel: editor.showGenerateKeySheet = false
            }
        }
    }

    Instantiator {
        id: copyInstance
        active: editor.showCopyKeySheet
        delegate: SheetWindow {
            title: "SSH Key Generated"
            owner: editor.Window.window
            onDismissRequested: editor.showCopyKeySheet = false

            CopyKeySheet {
                objectName: "copyKeySheet"
                onDone: editor.showCopyKeySheet = false
            }
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: 20
            Layout.rightMargin: 14
            Layout.topMargin: 14
            Layout.bottomMargin: 14
            spacing: 8

            Text {
                objectName: "sheetTitle"
                text: editor.title
                font: Theme.headline
                color: Theme.primaryText
            }
            Item { Layout.fillWidth: true }
            PlainButton {
                objectName: "cancelButton"
                text: "Cancel"
                textFont: Theme.body
                foreground: Theme.accent
                onClicked: editor.cancel()
            }
        }

        Divider { Layout.fillWidth: true }

        ScrollView {
            id: scroll
            objectName: "formScroll"
            Layout.fillWidth: true
            Layout.fillHeight: true
            contentWidth: availableWidth
            clip: true

            ColumnLayout {
                objectName: "formColumn"
                x: 20
                width: scroll.availableWidth - 40
                spacing: 18

                Item { implicitHeight: 0 }

                SettingsSection {
                    title: "Profile Name"
                    SettingsCard {
                        SheetTextField {
                            id: nameField
                            objectName: "nameField"
                            Layout.fillWidth: true
                            placeholderText: "e.g., Personal, Work, Freelance"
                            text: editor.name
                            onTextEdited: editor.name = text
                        }
                    }
                }

                SettingsSection {
                    title: "Git Configuration"
                    SettingsCard {
                        SheetFormRow {
                            label: "Git Name"
                            SheetTextField {
                                objectName: "gitNameField"
                                Layout.fillWidth: true
                                text: editor.gitName
                                onTextEdited: editor.gitName = text
                            }
                        }
                        SheetFormRow {
                            label: "Git Email"
                            SheetTextField {
                                objectName: "gitEmailField"
                                Layout.fillWidth: true
                                text: editor.gitEmail
                                onTextEdited: editor.gitEmail = text
                            }
                        }
                    }
                }

                SettingsSection {
                    title: "SSH Key (Optional)"
                    SettingsCard {
                        RowLayout {
                            Layout.fillWidth: true
                            spacing: 8
                            SheetTextField {
                                objectName: "sshKeyPathField"
                                Layout.fillWidth: true
                                placeholderText: "e.g., ~/.ssh/id_ed25519"
                                text: editor.sshKeyPath
                                onTextEdited: editor.sshKeyPath = text
                            }
                            SheetButton {
                                objectName: "generateButton"
                                text: "Generate"
                                symbol: "key.fill"
                                onClicked: editor.showGenerateKeySheet = true
                            }
                        }
                    }
                }

                SettingsSection {
                    title: "AI Configuration (Optional)"
                    SettingsCard {
                        SheetSwitch {
                            objectName: "aiEnabledSwitch"
                            Layout.fillWidth: true
                            text: "Enable AI Context"
                            checked: editor.aiEnabled
                            onToggled: {
                                editor.aiEnabled = checked
                                checked = Qt.binding(() => editor.aiEnabled)
                            }
                        }

                        ColumnLayout {
                            objectName: "aiDetails"
                            visible: editor.aiEnabled
                            Layout.fillWidth: true
                            spacing: 12

                            SheetFormRow {
                                label: "Provider"
                                SheetPicker {
                                    objectName: "providerPicker"
                                    Layout.fillWidth: true
                                    model: form.providers()
                                    current: editor.aiProvider
                                    symbols: editor.providerSymbols
                                    onPicked: value => editor.aiProvider = value
                                }
                            }
                            SheetFormRow {
                                label: "Model"
                                SheetPicker {
                                    objectName: "modelPicker"
                                    Layout.fillWidth: true
                                    model: form.models(editor.aiProvider)
                                    current: editor.aiModel
                                    onPicked: value => editor.aiModel = value
                                }
                            }
                            SheetFormRow {
                                objectName: "apiKeyRow"
                                visible: editor.showsAPIKey
                                label: "API Key"
                                SheetTextField {
                                    objectName: "apiKeyField"
                                    Layout.fillWidth: true
                                    secure: true
                                    text: editor.aiAPIKey
                                    onTextEdited: editor.aiAPIKey = text
                                }
                            }
                            SheetFormRow {
                                objectName: "baseURLRow"
                                visible: editor.showsBaseURL
                                label: "Base URL"
                                SheetTextField {
                                    objectName: "baseURLField"
                                    Layout.fillWidth: true
                                    text: editor.aiBaseURL
                                    onTextEdited: editor.aiBaseURL = text
                                }
                            }
                            Text {
                                objectName: "localHint"
                                visible: editor.aiProvider === "Local"
                                Layout.fillWidth: true
                                Layout.leftMargin: 104
                                Layout.topMargin: -6
                                text: "e.g., http://localhost:11434"
                                font: Theme.caption
                                color: Theme.secondaryText
                            }

                            RowLayout {
                                Layout.fillWidth: true
                                spacing: 12
                                SheetButton {
                                    objectName: "testConnectionButton"
                                    text: "Test Connection"
                                    busy: editor.testingConnection
                                    onClicked: editor.testConnection()
                                }
                                RowLayout {
                                    objectName: "connectionStatusLine"
                                    visible: editor.connectionStatus !== null
                                    Layout.fillWidth: true
                                    spacing: 6
                                    SymbolIcon {
                                        objectName: "connectionStatusMark"
                                        name: editor.connectionSuccess ? "checkmark.circle.fill"
                                                                       : "xmark.circle.fill"
                                        color: editor.connectionSuccess ? Theme.green : Theme.red
                                        size: 15
                                    }
                                    Text {
                                        objectName: "connectionStatusText"
                                        Layout.fillWidth: true
                                        text: editor.connectionStatus !== null
                                              ? editor.connectionStatus : ""
                                        font: Theme.subheadline
                                        color: Theme.secondaryText
                                        wrapMode: Text.Wrap
                                    }
                                }
                            }
                        }
                    }
                }

                SigningSection {
                    id: signingSection
                    objectName: "signingSection"
                    Layout.fillWidth: true
                    profileId: editor.profile ? editor.profile.id : ""
                    sshKeyPath: editor.sshKeyPath
                }

                ProfileRulesSection {
                    id: rulesSection
                    objectName: "rulesSection"
                    profileId: editor.profile ? editor.profile.id : ""
                }

                Item { implicitHeight: 4 }
            }
        }

        Divider { Layout.fillWidth: true }

        // Why the profile could not be stored; the sheet stays open.
        Text {
            objectName: "saveError"
            Layout.fillWidth: true
            Layout.topMargin: 10
            Layout.leftMargin: 20
            Layout.rightMargin: 20
            visible: editor.saveError.length > 0
            text: editor.saveError
            font: Theme.subheadline
            color: Theme.red
            wrapMode: Text.Wrap
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.margins: 14
            Layout.leftMargin: 20
            Layout.rightMargin: 20
            Item { Layout.fillWidth: true }
            SheetButton {
                objectName: "saveButton"
                text: "Save"
                prominent: true
                enabled: editor.isValid
                onClicked: editor.save()
            }
        }
    }
}
