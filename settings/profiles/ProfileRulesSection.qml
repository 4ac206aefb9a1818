import QtQuick
import QtQuick.Layouts
import QtQuick.Dialogs
import QtCore
import Kivora

// The profile editor's last section, "Used Automatically In": the folders and remote patterns
// in whose repositories git uses this profile whatever the active one is. Changes are kept
// here until commit(), which the editor calls after the profile itself was saved.
SettingsSection {
    id: section

    // The id of the profile edited.
    property string profileId: ""
    property alias ruleList: ruleList
    property string remoteText: ""

    title: "Used Automatically In"
    description: "Repositories in these folders, or with a remote matching these patterns, "
                 + "use this profile. Later rules win."

    function commit(): bool {
        return ruleList.commit()
    }

    function addRemote() {
        if (ruleList.addRemote(section.remoteText)) {
            section.remoteText = ""
        }
    }

    function chooseFolder() {
        const dialog = folderDialog.createObject(section) as FolderDialog
        dialog.open()
    }

    ProfileRuleList {
        id: ruleList
        staged: true
        manager: ProfileManager
        profileId: section.profileId
    }

    // The desktop's folder chooser, made when asked for.
    Component {
        id: folderDialog
        FolderDialog {
            title: "Choose a Folder"
            currentFolder: StandardPaths.writableLocation(StandardPaths.HomeLocation)
            onAccepted: {
                ruleList.addFolder(selectedFolder)
                destroy()
            }
            onRejected: destroy()
        }
    }

    SettingsCard {
        Text {
            objectName: "noRulesText"
            visible: ruleList.rules.length === 0
            Layout.fillWidth: true
            text: "Only when it is the active profile."
            font: Theme.subheadline
            color: Theme.secondaryText
        }

        Repeater {
            model: ruleList.rules
            delegate: RowLayout {
                id: ruleRow
                required property var modelData
                required property int index
                objectName: "ruleRow" + index
                Layout.fillWidth: true
                spacing: 8
                SymbolIcon {
                    name: ruleRow.modelData.kind === "dir" ? "folder" : "globe"
                    color: Theme.secondaryText
                    size: 14
                }
                Text {
                    objectName: "ruleText"
                    Layout.fillWidth: true
                    text: ruleRow.modelData.shown
                    font: Theme.body
                    color: Theme.primaryText
                    elide: Text.ElideMiddle
                }
                RowActionButton {
                    objectName: "removeRuleButton"
                    symbol: "trash"
                    foreground: Theme.red
                    fill: Qt.rgba(Theme.red.r, Theme.red.g, Theme.red.b, 0.12)
                    tooltip: "Remove"
                    onClicked: ruleList.removeAt(ruleRow.index)
                }
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 8
            SheetTextField {
                objectName: "remotePatternField"
                Layout.fillWidth: true
                placeholderText: "e.g., git@github.com:acme/**"
                text: section.remoteText
                onTextEdited: section.remoteText = text
                onAccepted: section.addRemote()
            }
            SheetButton {
                objectName: "addRemoteButton"
                text: "Add Remote"
                symbol: "globe"
                enabled: section.remoteText.trim().length > 0
                onClicked: section.addRemote()
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 8
            SheetButton {
                objectName: "addFolderButton"
                text: "Add Folder…"
                symbol: "folder"
                onClicked: section.chooseFolder()
            }
            Text {
                objectName: "rulesErrorText"
                visible: ruleList.errorText.length > 0
                Layout.fillWidth: true
                text: ruleList.errorText
                font: Theme.subheadline
                color: Theme.red
                wrapMode: Text.Wrap
            }
        }
    }
}
