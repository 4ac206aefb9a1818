// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The active profile: avatar, name and identity lines, or "No profile selected".
Rectangle {
    id: card

    property bool hasProfile: false
    property var profile: ({})
    property string iconStyle: "dot"
    property bool showEmail: true

    implicitHeight: layout.implicitHeight + 2 * Theme.spacingL
    radius: Theme.largeRadius
    color: Theme.controlBackground
    clip: true
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Active Profile")

    RowLayout {
        id: layout
        anchors.fill: parent
        anchors.margins: Theme.spacingL
        spacing: Theme.spacingL

        ProfileAvatar {
            Layout.alignment: Qt.AlignTop
            iconStyle: card.iconStyle
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.spacingXS

            RowLayout {
                Layout.fillWidth: true
                Text {
                    textFormat: Text.PlainText
                    text: qsTr("Active Profile")
                    font: Theme.caption
                    color: Theme.secondaryText
                }
                Item { Layout.fillWidth: true }
                SymbolIcon {
                    name: "checkmark.circle.fill"
                    color: card.hasProfile ? Theme.green : Theme.tertiaryText
                    size: Theme.symbolM
                }
            }

            Text {
                textFormat: Text.PlainText
                objectName: "noProfileText"
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                visible: !card.hasProfile
                text: qsTr("No profile selected")
                font: Theme.subheadline
                color: Theme.secondaryText
            }

            Text {
                textFormat: Text.PlainText
                objectName: "activeProfileName"
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                visible: card.hasProfile
                Layout.fillWidth: true
                text: card.profile.name ?? ""
                font: Theme.headline
                color: Theme.primaryText
                elide: Text.ElideRight
            }
            DetailLine {
                objectName: "gitNameLine"
                visible: card.hasProfile
                Layout.fillWidth: true
                symbol: "person.fill"
                text: card.profile.gitName ?? ""
            }
            DetailLine {
                objectName: "emailLine"
                visible: card.hasProfile && card.showEmail
                Layout.fillWidth: true
                symbol: "envelope.fill"
                text: card.profile.gitEmail ?? ""
            }
            DetailLine {
                objectName: "keyLine"
                visible: card.hasProfile && (card.profile.sshKeyPath ?? "").length > 0
                Layout.fillWidth: true
                symbol: "key.fill"
                text: card.profile.sshKeyPath ?? ""
            }
        }
    }
}
