// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Window
import Kivora

// The sheet in which one profile is created or edited: display name, git identity, SSH key
// (typed, or generated here), the optional AI configuration with its connection test, commit
// signing and the folders and remotes that use the profile. Its state and rules are the
// ProfileEditor's (`form`); the sheet lays them out. It hands the finished profile to `saved`
// and never changes the profile list itself.
Rectangle {
    id: editor

    // The profile edited (a gitProfile); for a new profile the shared empty template.
    property var profile
    readonly property ProfileEditor form: editorForm
    readonly property string title: editorForm.title

    // Emitted by Save with the finished profile; the sheet is dismissed right after.
    signal saved(var profile)
    signal dismissed()

    // The button Return presses.
    readonly property Item defaultButton: saveButton

    // The key sheets shown on top of this one (null when closed).
    readonly property Item generateKeySheet: keySheets.generateKeySheet
    readonly property Item copyKeySheet: keySheets.copyKeySheet

    function save() {
        switch (editorForm.save()) {
        case ProfileEditor.Saved:
            editor.dismissed()
            break
        case ProfileEditor.SigningRefused:
            editor.reveal(signingSection)
            break
        case ProfileEditor.RulesRefused:
            editor.reveal(rulesSection)
            break
        case ProfileEditor.NotWritten:
            editor.reveal(saveErrorText)
            break
        }
    }

    function cancel() {
        editor.dismissed()
    }

    // Scrolls the form so that the item (one of its fields or buttons) is in view.
    function reveal(item: Item) {
        const flick = scroll.contentItem as Flickable
        if (!flick || !item || !item.visible) {
            return
        }
        const top = item.mapToItem(flick.contentItem, 0, 0).y
        if (top < flick.contentY) {
            flick.contentY = Math.max(0, top - Theme.spacingM)
        } else if (top + item.height > flick.contentY + flick.height) {
            flick.contentY = Math.max(0, Math.min(flick.contentHeight - flick.height,
                                                  top + item.height - flick.height + Theme.spacingM))
        }
    }

    // The same, once the form has laid out what just appeared.
    function revealSoon(item: Item) {
        revealTimer.item = item
        revealTimer.restart()
    }

    // The field the keyboard is in; it stays in view.
    readonly property Item focusedItem: Window.activeFocusItem

    implicitWidth: 500
    implicitHeight: 680
    color: Theme.windowBackground

    onFocusedItemChanged: {
        for (let item = editor.focusedItem; item; item = item.parent) {
            if (item === scroll) {
                editor.reveal(editor.focusedItem)
                return
            }
        }
    }

    Component.onCompleted: nameField.forceActiveFocus()

    ProfileEditor {
        id: editorForm
        profile: editor.profile
        onSaved: profile => editor.saved(profile)
    }

    Timer {
        id: revealTimer
        property Item item
        interval: 50
        onTriggered: editor.reveal(item)
    }

    KeySheets {
        id: keySheets
        form: editorForm
        owner: editor.Window.window
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.spacingSection
            Layout.rightMargin: Theme.spacingXL
            Layout.topMargin: Theme.spacingXL
            Layout.bottomMargin: Theme.spacingXL
            spacing: Theme.spacingM

            Text {
                textFormat: Text.PlainText
                objectName: "sheetTitle"
                text: editor.title
                font: Theme.headline
                color: Theme.primaryText
            }
            Item { Layout.fillWidth: true }
            PlainButton {
                objectName: "cancelButton"
                text: qsTr("Cancel")
                textFont: Theme.body
                foreground: Theme.accent
                onClicked: editor.cancel()
            }
        }

        Divider { Layout.fillWidth: true }

        ScrollView {
            id: scroll
            objectName: "formScroll"
            Layout.fillWidth: true
            Layout.fillHeight: true
            contentWidth: availableWidth
            contentHeight: formColumn.implicitHeight + 2 * Theme.spacingSection
            clip: true

            ColumnLayout {
                id: formColumn
                objectName: "formColumn"
                x: Theme.spacingSection
                y: Theme.spacingSection
                width: scroll.availableWidth - 2 * Theme.spacingSection
                spacing: Theme.spacingXL + Theme.spacingXS

                SettingsSection {
                    title: qsTr("Profile Name")
                    SettingsCard {
                        TextInputField {
                            id: nameField
                            objectName: "nameField"
                            Layout.fillWidth: true
                            placeholderText: qsTr("e.g., Personal, Work, Freelance")
                            label: qsTr("Profile Name")
                            text: editorForm.name
                            onTextEdited: editorForm.name = text
                        }
                    }
                }

                GitConfigurationSection {
                    form: editorForm
                }

                SSHKeySection {
                    form: editorForm
                }

                AIConfigurationSection {
                    objectName: "aiSection"
                    form: editorForm
                    onDetailsShown: item => editor.revealSoon(item)
                }

                SigningSection {
                    id: signingSection
                    objectName: "signingSection"
                    form: editorForm.signing
                    sshKeyPath: editorForm.sshKeyPath
                }

                ProfileRulesSection {
                    id: rulesSection
                    objectName: "rulesSection"
                    ruleList: editorForm.rules
                }
            }
        }

        Divider { Layout.fillWidth: true }

        RowLayout {
            Layout.fillWidth: true
            Layout.margins: Theme.spacingXL
            Layout.leftMargin: Theme.spacingSection
            Layout.rightMargin: Theme.spacingSection
            spacing: Theme.spacingL

            Text {
                textFormat: Text.PlainText
                id: saveErrorText
                objectName: "saveError"
                Layout.fillWidth: true
                visible: editorForm.saveError.length > 0
                text: editorForm.saveError
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
                font: Theme.subheadline
                color: Theme.red
                wrapMode: Text.Wrap
            }
            Item {
                visible: !saveErrorText.visible
                Layout.fillWidth: true
            }
            PushButton {
                id: saveButton
                objectName: "saveButton"
                text: qsTr("Save")
                prominent: true
                enabled: editorForm.isValid
                onClicked: editor.save()
            }
        }
    }
}
