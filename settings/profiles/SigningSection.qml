// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The editor's "Commit Signing (Optional)" section: the key git signs this profile's commits
// and tags with (the public half of the profile's own SSH key is offered first) and whether it
// signs at all. The fields are the editor's signing form, read when the editor opens and
// written when it saves.
SettingsSection {
    id: section

    required property SigningForm form
    // The profile's SSH key path as typed in the editor.
    property string sshKeyPath

    readonly property var choices: form.keyChoices(section.sshKeyPath)

    title: qsTr("Commit Signing (Optional)")

    SettingsCard {
        FormRow {
            label: qsTr("Signing Key")
            TextInputField {
                objectName: "signingKeyField"
                label: qsTr("Signing Key")
                Layout.fillWidth: true
                placeholderText: qsTr("e.g., ~/.ssh/id_ed25519.pub or a GPG key ID")
                text: section.form.key
                onTextEdited: section.form.key = text
            }
            Picker {
                objectName: "signingKeyPicker"
                visible: section.choices.length > 0
                Layout.preferredWidth: Theme.signingPickerWidth
                choices: section.choices
                fallbackText: qsTr("Choose…")
                label: qsTr("Signing key choices")
                onPicked: key => {
                    section.form.key = key
                    if (!section.form.signCommits) {
                        section.form.signCommits = true
                    }
                }
            }
        }

        Toggle {
            objectName: "signCommitsSwitch"
            Layout.fillWidth: true
            text: qsTr("Sign Commits and Tags")
            value: section.form.signCommits
            onUserToggled: on => section.form.signCommits = on
        }

        Text {
            textFormat: Text.PlainText
            objectName: "signingStatus"
            Layout.fillWidth: true
            readonly property string issue: section.form.error.length > 0 ? section.form.error
                                                                           : section.form.problem
            visible: text.length > 0
            text: issue.length > 0 ? issue
                  : section.form.key.length === 0 ? ""
                  : section.form.format === "ssh" ? qsTr("Signed with the SSH key; git verifies it through Kivora's allowed signers.")
                  : qsTr("Signed with the OpenPGP key through gpg.")
            font: Theme.caption
            color: issue.length > 0 ? Theme.red : Theme.secondaryText
            wrapMode: Text.Wrap
        }
    }
}
