// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// The "About" page of the settings window: the application's identity, what it does, and
// links to the maker's site, opened in the browser.
SettingsContainer {
    id: page

    readonly property url websiteUrl: "https://kivora.app/"
    readonly property url documentationUrl: "https://kivora.app/docs/"
    readonly property url supportUrl: "https://kivora.app/support/"
    readonly property url privacyUrl: "https://kivora.app/privacy/"

    // Opens an address in the default browser.
    function openLink(address: url) {
        Qt.openUrlExternally(address)
    }

    title: qsTr("About")
    subtitle: qsTr("Learn more about Kivora")
    icon: "info.circle.fill"

    SettingsSection {
        title: qsTr("App Info")

        SettingsCard {
            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.spacingXL

                Image {
                    objectName: "appLogo"
                    Layout.preferredWidth: Theme.logoSize
                    Layout.preferredHeight: Theme.logoSize
                    sourceSize.width: 2 * Theme.logoSize
                    sourceSize.height: 2 * Theme.logoSize
                    fillMode: Image.PreserveAspectFit
                    source: "qrc:/qt/qml/Kivora/assets/kivora-dot-transparent.svg"
                }
                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: Theme.spacingXXS
                    Text {
                        textFormat: Text.PlainText
                        objectName: "appName"
                        text: "Kivora"
                        font: Theme.title
                        color: Theme.primaryText
                    }
                    Text {
                        textFormat: Text.PlainText
                        objectName: "appVersion"
                        text: qsTr("Version 1.0.0 (Build 1)")
                        font: Theme.body
                        color: Theme.secondaryText
                    }
                }
            }
        }
    }

    SettingsSection {
        title: qsTr("Description")

        SettingsCard {
            ParagraphText {
                text: qsTr("Kivora helps you manage multiple git identities across different projects and machines.")
            }
            ParagraphText {
                text: qsTr("Switch between git profiles instantly with a single click from your menu bar.")
            }
        }
    }

    SettingsSection {
        title: qsTr("Quick Links")

        SettingsCard {
            LinkRow {
                objectName: "link:Website"
                symbol: "globe"
                text: qsTr("Website")
                url: page.websiteUrl
                onClicked: page.openLink(url)
            }
            LinkRow {
                objectName: "link:Documentation"
                symbol: "book"
                text: qsTr("Documentation")
                url: page.documentationUrl
                onClicked: page.openLink(url)
            }
            LinkRow {
                objectName: "link:Support"
                symbol: "questionmark.circle"
                text: qsTr("Support")
                url: page.supportUrl
                onClicked: page.openLink(url)
            }
            LinkRow {
                objectName: "link:Privacy Policy"
                symbol: "hand.raised"
                text: qsTr("Privacy Policy")
                url: page.privacyUrl
                onClicked: page.openLink(url)
            }
        }
    }

    ColumnLayout {
        objectName: "footer"
        Layout.fillWidth: true
        spacing: Theme.spacingXXS

        Text {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Built with Qt")
            font: Theme.caption
            color: Theme.secondaryText
        }
        Text {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("© 2026 Kivora. All rights reserved.")
            font: Theme.caption
            color: Theme.tertiaryText
        }
    }
}
