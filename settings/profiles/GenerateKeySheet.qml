// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The small form for a new SSH key: its file name in ~/.ssh (empty for "id_ed25519") and an
// optional passphrase. The values are the editor's (`form`); "Generate" is never disabled.
// Cancel keeps what was typed until the next generation empties it; a generation that makes
// no key keeps the form open with the reason.
Rectangle {
    id: sheet

    required property ProfileEditor form
    // The button Return presses.
    readonly property Item defaultButton: generateButton

    function generate() {
        if (sheet.form.generateSSHKey()) {
            sheet.form.showGenerateKeySheet = false
        }
    }

    function cancel() {
        sheet.form.showGenerateKeySheet = false
    }

    implicitWidth: 400
    implicitHeight: layout.implicitHeight + 2 * Theme.spacingPage
    color: Theme.windowBackground

    Component.onCompleted: fileNameField.forceActiveFocus()

    ColumnLayout {
        id: layout
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.spacingPage
        spacing: Theme.spacingXL

        Text {
            textFormat: Text.PlainText
            objectName: "sheetTitle"
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            text: qsTr("Generate SSH Key")
            font: Theme.headline
            color: Theme.primaryText
        }

        TextInputField {
            id: fileNameField
            objectName: "keyFilenameField"
            Layout.fillWidth: true
            placeholderText: qsTr("Filename (leave blank for id_ed25519)")
            text: sheet.form.keyFilename
            onTextEdited: sheet.form.keyFilename = text
        }

        Toggle {
            objectName: "passphraseSwitch"
            Layout.fillWidth: true
            text: qsTr("Protect with passphrase")
            value: sheet.form.usePassphrase
            onUserToggled: on => sheet.form.usePassphrase = on
        }

        TextInputField {
            objectName: "passphraseField"
            visible: sheet.form.usePassphrase
            Layout.fillWidth: true
            secure: true
            placeholderText: qsTr("Passphrase")
            text: sheet.form.passphrase
            onTextEdited: sheet.form.passphrase = text
        }

        Text {
            textFormat: Text.PlainText
            objectName: "generateError"
            Layout.fillWidth: true
            visible: sheet.form.generationError.length > 0
            text: sheet.form.generationError
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
            font: Theme.subheadline
            color: Theme.red
            wrapMode: Text.Wrap
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: Theme.spacingS
            spacing: Theme.spacingM
            Item { Layout.fillWidth: true }
            PushButton {
                objectName: "cancelButton"
                text: qsTr("Cancel")
                onClicked: sheet.cancel()
            }
            PushButton {
                id: generateButton
                objectName: "generateButton"
                text: qsTr("Generate")
                prominent: true
                onClicked: sheet.generate()
            }
        }
    }
}
