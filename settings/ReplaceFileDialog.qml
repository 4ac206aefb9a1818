// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import QtQuick.Layouts
import Kivora

// Asked before an export overwrites a file that is already there, modal over the window.
Popup {
    id: dialog

    property url file
    property string fileName

    signal replaceChosen(url file)

    function ask(target: url, name: string) {
        dialog.file = target
        dialog.fileName = name
        dialog.open()
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: 340
    modal: true
    dim: true
    focus: true
    padding: 20
    topPadding: 22
    closePolicy: Popup.CloseOnEscape

    T.Overlay.modal: Rectangle {
        color: Qt.rgba(0, 0, 0, Theme.dark ? 0.45 : 0.22)
    }

    background: Rectangle {
        radius: 12
        color: Theme.popoverBackground
        border.width: 1
        border.color: Theme.border
    }

    contentItem: ColumnLayout {
        spacing: 8

        SymbolIcon {
            Layout.alignment: Qt.AlignHCenter
            name: "exclamationmark.triangle.fill"
            color: Theme.orange
            size: 30
        }
        Text {
            textFormat: Text.PlainText
            objectName: "dialogTitle"
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Layout.fillWidth: true
            Layout.topMargin: 4
            text: qsTr("A file named \u201c%1\u201d already exists.").arg(dialog.fileName)
            font: Theme.headline
            color: Theme.primaryText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        Text {
            textFormat: Text.PlainText
            objectName: "dialogMessage"
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Layout.fillWidth: true
            text: qsTr("Do you want to replace it? Its contents will be overwritten.")
            font: Theme.subheadline
            color: Theme.secondaryText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }

        ColumnLayout {
            Layout.fillWidth: true
            Layout.topMargin: 12
            spacing: 8

            PushButton {
                objectName: "replaceButton"
                Layout.fillWidth: true
                text: qsTr("Replace")
                destructive: true
                onClicked: {
                    dialog.close()
                    dialog.replaceChosen(dialog.file)
                }
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
