import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Kivora

// One profile on the profiles page: the active mark, the name and identity (a click
// activates), and under the pointer the edit and delete buttons. Deleting asks first.
Item {
    id: row

    // The profile shown (a gitProfile).
    property var profile
    property bool isActive: false
    readonly property bool isHovered: hover.hovered
    property bool showDeleteConfirmation: false

    readonly property string profileName: profile ? profile.name : ""
    readonly property string identity: profile ? profile.gitName + " · " + profile.gitEmail : ""
    readonly property bool hasKey: profile ? profile.sshKeyPath.length > 0 : false
    // The other profiles using the same key file, joined for a sentence; empty when none.
    property string keySharedWith

    signal activateRequested()
    signal editRequested()
    // Confirmed in the dialog; `deleteSSHKey` tells whether the key files go as well.
    signal deleteRequested(bool deleteSSHKey)

    implicitHeight: layout.implicitHeight + 20
    implicitWidth: layout.implicitWidth + 24

    onShowDeleteConfirmationChanged: {
        if (showDeleteConfirmation) {
            confirmation.open()
        } else {
            confirmation.close()
        }
    }

    // The profile's rules, shown under its identity line.
    ProfileRuleList {
        id: rowRules
        manager: ProfileManager
        profileId: row.profile ? row.profile.id : ""
    }

    Rectangle {
        objectName: "rowBackground"
        anchors.fill: parent
        radius: 8
        color: Theme.cardBackground
        border.width: 1
        border.color: Theme.cardBorder
        opacity: row.isHovered ? 1 : 0.5
        Behavior on opacity { NumberAnimation { duration: Theme.hoverDuration; easing.type: Easing.InOutQuad } }
    }

    HoverHandler { id: hover }

    RowLayout {
        id: layout
        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        anchors.topMargin: 10
        anchors.bottomMargin: 10
        spacing: 12

        AbstractButton {
            id: activateButton
            objectName: "activateButton"
            Accessible.name: row.profileName
            Accessible.description: row.identity
            Accessible.onPressAction: activateButton.clicked()
            Layout.fillWidth: true
            // The row's own hover handler tracks the pointer, wherever it comes in.
            hoverEnabled: false
            implicitHeight: contentItem.implicitHeight
            onClicked: row.activateRequested()

            contentItem: RowLayout {
                spacing: 12

                Rectangle {
                    objectName: "activeMark"
                    implicitWidth: 8
                    implicitHeight: 8
                    radius: 4
                    color: row.isActive ? Theme.green : "transparent"
                    border.width: 2
                    border.color: row.isActive ? Theme.green : Theme.secondaryText
                    Behavior on color { ColorAnimation { duration: Theme.statusDuration } }
                }

                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2
                    Text {
                        objectName: "nameText"
                        Layout.fillWidth: true
                        text: row.profileName
                        font: Qt.font({ family: Theme.systemFont.family, pixelSize: 14,
                                        weight: Font.Medium })
                        color: Theme.primaryText
                        elide: Text.ElideRight
                    }
                    Text {
                        objectName: "identityText"
                        Layout.fillWidth: true
                        text: row.identity
                        font: Theme.subheadline
                        color: Theme.secondaryText
                        elide: Text.ElideRight
                    }
                    Text {
                        objectName: "rulesText"
                        visible: rowRules.summary.length > 0
                        Layout.fillWidth: true
                        text: rowRules.summary
                        font: Theme.caption
                        color: Theme.tertiaryText
                        elide: Text.ElideRight
                    }
                }
            }
            background: Item {}
        }

        Row {
            objectName: "hoverActions"
            spacing: 6
            opacity: row.isHovered ? 1 : 0
            visible: opacity > 0
            Behavior on opacity { NumberAnimation { duration: Theme.hoverDuration; easing.type: Easing.InOutQuad } }

            RowActionButton {
                objectName: "editButton"
                symbol: "pencil"
                foreground: Theme.secondaryText
                fill: Theme.quaternaryText
                tooltip: "Edit profile"
                onClicked: row.editRequested()
            }
            RowActionButton {
                objectName: "deleteButton"
                symbol: "trash"
                foreground: Theme.red
                fill: Qt.rgba(Theme.red.r, Theme.red.g, Theme.red.b, 0.12)
                tooltip: "Delete profile"
                onClicked: row.showDeleteConfirmation = true
            }
        }
    }

    DeleteProfileDialog {
        id: confirmation
        objectName: "deleteConfirmation"
        profileName: row.profileName
        hasKey: row.hasKey
        sharedWith: row.keySharedWith
        onClosed: row.showDeleteConfirmation = false
        onDeleteChosen: deleteSSHKey => row.deleteRequested(deleteSSHKey)
    }
}
