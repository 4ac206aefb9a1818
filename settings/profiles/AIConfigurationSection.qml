// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The editor's "AI Configuration (Optional)" section: the switch, and while it is on the
// provider and model pickers, the fields the provider uses, and the connection test with its
// verdict. Which fields show, and what the test says, is the editor's (`form`).
SettingsSection {
    id: section

    required property ProfileEditor form

    // The details appeared: the sheet scrolls the test button into view.
    signal detailsShown(Item item)

    title: qsTr("AI Configuration (Optional)")

    SettingsCard {
        Toggle {
            objectName: "aiEnabledSwitch"
            Layout.fillWidth: true
            text: qsTr("Enable AI Context")
            value: section.form.aiEnabled
            onUserToggled: on => {
                section.form.aiEnabled = on
                if (on) {
                    section.detailsShown(testButton)
                }
            }
        }

        ColumnLayout {
            objectName: "aiDetails"
            visible: section.form.aiEnabled
            Layout.fillWidth: true
            spacing: Theme.spacingL

            FormRow {
                label: qsTr("Provider")
                Picker {
                    objectName: "providerPicker"
                    label: qsTr("Provider")
                    Layout.fillWidth: true
                    choices: section.form.providerNames
                    value: section.form.providerName
                    symbols: section.form.providerSymbols
                    onActivated: index => section.form.provider = section.form.providers[index]
                }
            }
            FormRow {
                label: qsTr("Model")
                Picker {
                    objectName: "modelPicker"
                    label: qsTr("Model")
                    Layout.fillWidth: true
                    choices: section.form.models
                    value: section.form.model
                    fallbackText: section.form.model
                    onPicked: model => section.form.model = model
                }
            }
            FormRow {
                objectName: "apiKeyRow"
                visible: section.form.showsAPIKey
                label: qsTr("API Key")
                TextInputField {
                    objectName: "apiKeyField"
                    label: qsTr("API Key")
                    Layout.fillWidth: true
                    secure: true
                    text: section.form.apiKey
                    onTextEdited: section.form.apiKey = text
                }
            }
            FormRow {
                objectName: "baseURLRow"
                visible: section.form.showsBaseURL
                label: qsTr("Base URL")
                TextInputField {
                    objectName: "baseURLField"
                    label: qsTr("Base URL")
                    Layout.fillWidth: true
                    text: section.form.baseURL
                    onTextEdited: section.form.baseURL = text
                }
            }
            Text {
                textFormat: Text.PlainText
                objectName: "localHint"
                visible: section.form.showsBaseURL && text.length > 0
                Layout.fillWidth: true
                Layout.leftMargin: Theme.formLabelWidth + Theme.spacingL
                Layout.topMargin: -Theme.spacingS
                text: section.form.baseURLExample
                font: Theme.caption
                color: Theme.secondaryText
            }

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.spacingL
                PushButton {
                    id: testButton
                    objectName: "testConnectionButton"
                    text: qsTr("Test Connection")
                    busy: section.form.testingConnection
                    onClicked: section.form.testConnection()
                }
                RowLayout {
                    objectName: "connectionStatusLine"
                    visible: section.form.connectionStatus !== null
                    Layout.fillWidth: true
                    spacing: Theme.spacingS
                    SymbolIcon {
                        objectName: "connectionStatusMark"
                        name: section.form.connectionSuccess ? "checkmark.circle.fill"
                                                             : "xmark.circle.fill"
                        color: section.form.connectionSuccess ? Theme.green : Theme.red
                        size: Theme.symbolL + 1
                    }
                    Text {
                        textFormat: Text.PlainText
                        objectName: "connectionStatusText"
                        Layout.fillWidth: true
                        text: section.form.connectionStatus !== null
                              ? section.form.connectionStatus : ""
                        // The verdict is said when it arrives.
                        Accessible.role: Accessible.StatusBar
                        Accessible.name: (section.form.connectionSuccess ? qsTr("Succeeded") : qsTr("Failed"))
                                         + ": " + text
                        font: Theme.subheadline
                        color: Theme.secondaryText
                        wrapMode: Text.Wrap
                    }
                }
            }
        }
    }
}
