// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import QtQuick.Layouts
import Kivora

// The confirmation before a profile is deleted, modal over the window. A profile without a key
// offers "Delete" and "Cancel"; one with a key also offers to delete the key files. It opens
// with the keyboard focus on its first button, which Return presses; Escape cancels.
Popup {
    id: dialog

    property string profileName
    property bool hasKey: false
    // The other profiles that use the same key file ("\"Work\"", "\"Work\" and \"Home\""),
    // or empty. Deleting the key takes it from them too, so the confirmation names them.
    property string sharedWith

    // The user chose to delete; `deleteSSHKey` tells whether the key files go as well.
    signal deleteChosen(bool deleteSSHKey)

    readonly property string message: hasKey
        ? qsTr("This profile has an SSH key associated with it. Would you also like to delete the SSH key file?")
          + (sharedWith.length > 0 ? " " + qsTr("The same key is also used by %1.").arg(sharedWith) : "")
        : qsTr("Are you sure you want to delete \"%1\"? This action cannot be undone.").arg(profileName)

    function choose(deleteSSHKey: bool) {
        dialog.close()
        dialog.deleteChosen(deleteSSHKey)
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: 340
    modal: true
    dim: true
    focus: true
    padding: Theme.spacingSection
    topPadding: Theme.spacingSection + Theme.spacingXXS
    closePolicy: Popup.CloseOnEscape

    // The first button takes the focus as the keyboard would give it, so its ring shows.
    onOpened: {
        const wanted = dialog.hasKey ? "deleteProfileOnlyButton" : "deleteButton"
        const visit = item => {
            const children = item.children
            for (let i = 0; i < children.length; ++i) {
                const child = children[i]
                if (child.objectName === wanted)
                    return child
                const found = visit(child)
                if (found)
                    return found
            }
            return null
        }
        const button = visit(dialog.contentItem)
        if (button)
            button.forceActiveFocus(Qt.TabFocusReason)
    }

    T.Overlay.modal: Rectangle {
        color: Qt.rgba(0, 0, 0, Theme.dark ? 0.45 : 0.22)
    }

    background: Rectangle {
        radius: Theme.cardRadius
        color: Theme.popoverBackground
        border.width: 1
        border.color: Theme.border
    }

    contentItem: ColumnLayout {
        spacing: Theme.spacingM
        Accessible.role: Accessible.Dialog
        Accessible.name: qsTr("Delete Profile")
        Accessible.description: dialog.message

        SymbolIcon {
            Layout.alignment: Qt.AlignHCenter
            name: "trash"
            color: Theme.red
            size: Theme.dialogSymbolSize
        }
        Text {
            textFormat: Text.PlainText
            objectName: "dialogTitle"
            Layout.fillWidth: true
            Layout.topMargin: Theme.spacingXS
            text: qsTr("Delete Profile")
            font: Theme.headline
            color: Theme.primaryText
            horizontalAlignment: Text.AlignHCenter
        }
        Text {
            textFormat: Text.PlainText
            objectName: "dialogMessage"
            Layout.fillWidth: true
            text: dialog.message
            font: Theme.subheadline
            color: Theme.secondaryText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }

        ColumnLayout {
            objectName: "dialogButtons"
            Layout.fillWidth: true
            Layout.topMargin: Theme.spacingL
            spacing: Theme.spacingM

            PushButton {
                objectName: "deleteButton"
                visible: !dialog.hasKey
                Layout.fillWidth: true
                text: qsTr("Delete")
                destructive: true
                onClicked: dialog.choose(false)
            }
            PushButton {
                objectName: "deleteProfileOnlyButton"
                visible: dialog.hasKey
                Layout.fillWidth: true
                text: qsTr("Delete Profile Only")
                onClicked: dialog.choose(false)
            }
            PushButton {
                objectName: "deleteProfileAndKeyButton"
                visible: dialog.hasKey
                Layout.fillWidth: true
                text: qsTr("Delete Profile and SSH Key")
                destructive: true
                onClicked: dialog.choose(true)
            }
            PushButton {
                objectName: "cancelButton"
                Layout.fillWidth: true
                text: qsTr("Cancel")
                onClicked: dialog.close()
            }
        }
    }
}
