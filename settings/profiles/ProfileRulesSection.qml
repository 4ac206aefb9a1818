// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Dialogs
import QtCore
import Kivora

// The profile editor's last section, "Used Automatically In": the folders and remote patterns
// in whose repositories git uses this profile whatever the active one is. The editor's rule
// list keeps the changes until the editor saves, after the profile itself.
SettingsSection {
    id: section

    required property ProfileRuleList ruleList
    property string remoteText: ""

    title: qsTr("Used Automatically In")
    description: qsTr("Repositories in these folders, or with a remote matching these patterns, use this profile. Later rules win.")

    function addRemote() {
        if (section.ruleList.addRemote(section.remoteText)) {
            section.remoteText = ""
        }
    }

    function chooseFolder() {
        const dialog = folderDialog.createObject(section) as FolderDialog
        dialog.open()
    }

    // The desktop's folder chooser, made when asked for.
    Component {
        id: folderDialog
        FolderDialog {
            title: qsTr("Choose a Folder")
            currentFolder: StandardPaths.writableLocation(StandardPaths.HomeLocation)
            onAccepted: {
                section.ruleList.addFolder(selectedFolder)
                destroy()
            }
            onRejected: destroy()
        }
    }

    SettingsCard {
        Text {
            textFormat: Text.PlainText
            objectName: "noRulesText"
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            visible: section.ruleList.rules.length === 0
            Layout.fillWidth: true
            text: qsTr("Only when it is the active profile.")
            font: Theme.subheadline
            color: Theme.secondaryText
        }

        Repeater {
            model: section.ruleList.rules
            delegate: RowLayout {
                id: ruleRow
                required property var modelData
                required property int index
                objectName: "ruleRow" + index
                Layout.fillWidth: true
                spacing: Theme.spacingM
                SymbolIcon {
                    name: ruleRow.modelData.kind === "dir" ? "folder" : "globe"
                    color: Theme.secondaryText
                    size: Theme.symbolL
                }
                Text {
                    textFormat: Text.PlainText
                    objectName: "ruleText"
                    Layout.fillWidth: true
                    text: ruleRow.modelData.shown
                    font: Theme.body
                    color: Theme.primaryText
                    elide: Text.ElideMiddle
                }
                SymbolButton {
                    objectName: "removeRuleButton"
                    size: Theme.rowButtonSize
                    radius: Theme.rowRadius
                    symbol: "trash"
                    foreground: Theme.red
                    fill: Theme.faded(Theme.red, 0.12)
                    fillOpacity: 0.6
                    tooltip: qsTr("Remove")
                    Accessible.description: ruleRow.modelData.shown
                    onClicked: section.ruleList.removeAt(ruleRow.index)
                }
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spacingM
            TextInputField {
                objectName: "remotePatternField"
                Layout.fillWidth: true
                placeholderText: qsTr("e.g., git@github.com:acme/**")
                label: qsTr("Remote pattern")
                text: section.remoteText
                onTextEdited: section.remoteText = text
                onAccepted: section.addRemote()
            }
            PushButton {
                objectName: "addRemoteButton"
                text: qsTr("Add Remote")
                symbol: "globe"
                enabled: section.remoteText.trim().length > 0
                onClicked: section.addRemote()
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spacingM
            PushButton {
                objectName: "addFolderButton"
                text: qsTr("Add Folder…")
                symbol: "folder"
                onClicked: section.chooseFolder()
            }
            Text {
                textFormat: Text.PlainText
                objectName: "rulesErrorText"
                visible: section.ruleList.errorText.length > 0
                Layout.fillWidth: true
                text: section.ruleList.errorText
                font: Theme.subheadline
                color: Theme.red
                wrapMode: Text.Wrap
            }
        }
    }
}
