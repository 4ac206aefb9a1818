// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// Shown after a new key was made and its public key put on the clipboard: where to paste it,
// with a button that opens the hosting service's SSH key settings in the browser.
Rectangle {
    id: sheet

    readonly property url keySettingsPage: "https://github.com/settings/keys"

    // The button Return presses.
    readonly property Item defaultButton: doneButton

    signal done()

    function openKeySettings() {
        Qt.openUrlExternally(sheet.keySettingsPage)
    }

    implicitWidth: 400
    implicitHeight: layout.implicitHeight + 2 * Theme.spacingSheet
    color: Theme.windowBackground

    ColumnLayout {
        id: layout
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.spacingSheet
        spacing: Theme.spacingL

        SymbolIcon {
            Layout.alignment: Qt.AlignHCenter
            name: "checkmark.circle.fill"
            color: Theme.green
            size: Theme.successSymbolSize
        }
        Text {
            textFormat: Text.PlainText
            objectName: "sheetTitle"
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Layout.alignment: Qt.AlignHCenter
            text: qsTr("SSH Key Generated!")
            font: Theme.headline
            color: Theme.primaryText
        }
        Text {
            textFormat: Text.PlainText
            objectName: "copiedText"
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Layout.alignment: Qt.AlignHCenter
            text: qsTr("Your public key has been copied to clipboard.")
            font: Theme.subheadline
            color: Theme.secondaryText
        }

        Rectangle {
            Layout.fillWidth: true
            Layout.topMargin: Theme.spacingXS
            implicitHeight: box.implicitHeight + 2 * Theme.spacingL
            radius: Theme.largeRadius
            color: Theme.cardBackground
            border.width: 1
            border.color: Theme.cardBorder

            ColumnLayout {
                id: box
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.top: parent.top
                anchors.margins: Theme.spacingL
                spacing: Theme.spacingML

                Text {
                    textFormat: Text.PlainText
                    objectName: "instructionText"
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                    Layout.fillWidth: true
                    text: qsTr("Paste your key in GitHub Settings → SSH and GPG keys → New SSH key")
                    font: Theme.subheadline
                    color: Theme.primaryText
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                }
                PushButton {
                    objectName: "openKeySettingsButton"
                    Layout.alignment: Qt.AlignHCenter
                    text: qsTr("Open GitHub SSH Keys")
                    symbol: "arrow.up.forward.square"
                    onClicked: sheet.openKeySettings()
                }
            }
        }

        PushButton {
            id: doneButton
            objectName: "doneButton"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.spacingXS
            text: qsTr("Done")
            prominent: true
            onClicked: sheet.done()
        }
    }
}
