// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A miniature of the tray item's menu as the current preferences draw it: the icon in the
// chosen style beside a sample active profile, a second sample profile and the footer
// buttons. It follows every change of the preferences at once; its buttons do nothing.
Rectangle {
    id: preview

    readonly property string iconStyle: SettingsManager.menuBarIconStyle
    readonly property bool showEmail: SettingsManager.showProfileEmail
    readonly property bool compact: SettingsManager.compactMode
    readonly property int padding: compact ? Theme.spacingM : Theme.spacingXL

    // Obviously made-up sample identity.
    readonly property string sampleName: qsTr("Alex Sample")
    readonly property string sampleWorkEmail: "alex@work.example"
    readonly property string samplePersonalEmail: "alex@personal.example"

    implicitWidth: Theme.popoverWidth
    implicitHeight: column.implicitHeight + 2 * padding
    radius: Theme.largeRadius
    color: Theme.popoverBackground
    border.width: 1
    border.color: Theme.border

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: preview.padding
        spacing: preview.compact ? Theme.spacingS : Theme.spacingML

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spacingML

            IconStyleMark {
                objectName: "previewIcon"
                iconStyle: preview.iconStyle
                logoSize: Theme.previewLogoSize
                stretchLogo: true
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.spacingXXS
                Text {
                    textFormat: Text.PlainText
                    objectName: "previewProfileName"
                    text: qsTr("Work")
                    font: Theme.headline
                    color: Theme.primaryText
                }
                Text {
                    textFormat: Text.PlainText
                    objectName: "previewEmailLine"
                    Layout.fillWidth: true
                    visible: preview.showEmail
                    text: preview.sampleName + " · " + preview.sampleWorkEmail
                    font: Theme.subheadline
                    color: Theme.secondaryText
                    elide: Text.ElideRight
                }
            }
        }

        Divider { Layout.fillWidth: true }

        Text {
            textFormat: Text.PlainText
            objectName: "previewSecondProfile"
            Layout.fillWidth: true
            text: preview.sampleName + " · " + preview.samplePersonalEmail
            font: Theme.subheadline
            color: Theme.secondaryText
            elide: Text.ElideRight
        }

        Divider { Layout.fillWidth: true }

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spacingXS

            // Shown only: pressing them does nothing, and the keyboard passes them by.
            PlainButton {
                objectName: "previewAdd"
                focusPolicy: Qt.NoFocus
                text: qsTr("Add")
            }
            Item { Layout.fillWidth: true }
            PlainButton {
                objectName: "previewSettings"
                focusPolicy: Qt.NoFocus
                text: qsTr("Settings")
            }
            PlainButton {
                objectName: "previewQuit"
                focusPolicy: Qt.NoFocus
                text: qsTr("Quit")
            }
        }
    }
}
