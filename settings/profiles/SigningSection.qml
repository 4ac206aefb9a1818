import QtQuick
import QtQuick.Layouts
import Kivora

// The editor's "Commit Signing (Optional)" section: the key git signs this profile's commits
// and tags with (the public half of the profile's own SSH key is offered first) and whether it
// signs at all. The fields are read when the editor opens and written by `commit()` on Save.
SettingsSection {
    id: section

    // The id of the profile edited, and its SSH key path as typed in the editor.
    property string profileId
    property string sshKeyPath

    readonly property alias form: signingForm
    readonly property var choices: signingForm.keyChoices(section.sshKeyPath)

    // Stores the fields; false (with the reason shown under them) when they cannot be stored.
    function commit(): bool {
        return signingForm.save(section.profileId)
    }

    title: "Commit Signing (Optional)"

    Component.onCompleted: signingForm.load(section.profileId)
    onProfileIdChanged: signingForm.load(section.profileId)

    SigningForm {
        id: signingForm
        manager: ProfileManager
    }

    SettingsCard {
        SheetFormRow {
            label: "Signing Key"
            SheetTextField {
                objectName: "signingKeyField"
                Layout.fillWidth: true
                placeholderText: "e.g., ~/.ssh/id_ed25519.pub or a GPG key ID"
                text: signingForm.key
                onTextEdited: signingForm.key = text
            }
            SheetPicker {
                objectName: "signingKeyPicker"
                visible: section.choices.length > 0
                Layout.preferredWidth: 110
                model: section.choices
                current: "Choose…"
                onPicked: value => {
                    signingForm.key = value
                    if (!signingForm.signCommits) {
                        signingForm.signCommits = true
                    }
                }
            }
        }

        SheetSwitch {
            objectName: "signCommitsSwitch"
            Layout.fillWidth: true
            text: "Sign Commits and Tags"
            checked: signingForm.signCommits
            onToggled: {
                signingForm.signCommits = checked
                checked = Qt.binding(() => signingForm.signCommits)
            }
        }

        Text {
            objectName: "signingStatus"
            Layout.fillWidth: true
            readonly property string issue: signingForm.error.length > 0 ? signingForm.error
                                                                          : signingForm.problem
            visible: text.length > 0
            text: issue.length > 0 ? issue
                  : signingForm.key.length === 0 ? ""
                  : signingForm.format === "ssh" ? "Signed with the SSH key; git verifies it through Kivora's allowed signers."
                  : "Signed with the OpenPGP key through gpg."
            font: Theme.caption
            color: issue.length > 0 ? Theme.red : Theme.secondaryText
            wrapMode: Text.Wrap
        }
    }
}
