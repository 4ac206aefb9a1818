// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The editor's "Git Configuration" section: the git name and e-mail of the profile.
SettingsSection {
    id: section

    required property ProfileEditor form

    title: qsTr("Git Configuration")

    SettingsCard {
        FormRow {
            label: qsTr("Git Name")
            TextInputField {
                objectName: "gitNameField"
                label: qsTr("Git Name")
                Layout.fillWidth: true
                text: section.form.gitName
                onTextEdited: section.form.gitName = text
            }
        }
        FormRow {
            label: qsTr("Git Email")
            TextInputField {
                objectName: "gitEmailField"
                label: qsTr("Git Email")
                Layout.fillWidth: true
                text: section.form.gitEmail
                onTextEdited: section.form.gitEmail = text
            }
        }
    }
}
