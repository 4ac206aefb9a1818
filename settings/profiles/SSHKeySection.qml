// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The editor's "SSH Key (Optional)" section: the key path, typed by hand (there is no file
// chooser), and "Generate", which opens the key generation form.
SettingsSection {
    id: section

    required property ProfileEditor form

    title: qsTr("SSH Key (Optional)")

    SettingsCard {
        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spacingM
            TextInputField {
                objectName: "sshKeyPathField"
                Layout.fillWidth: true
                placeholderText: qsTr("e.g., ~/.ssh/id_ed25519")
                label: qsTr("SSH Key Path")
                text: section.form.sshKeyPath
                onTextEdited: section.form.sshKeyPath = text
            }
            PushButton {
                objectName: "generateButton"
                text: qsTr("Generate")
                symbol: "key.fill"
                onClicked: section.form.showGenerateKeySheet = true
            }
        }
    }
}
