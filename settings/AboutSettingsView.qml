import QtQuick
import QtQuick.Layouts
import Kivora

// The "About" page of the settings window: the application's identity, what it does,
// starting at login, and links to the maker's site, opened in the browser.
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

    title: "About"
    subtitle: "Learn more about Kivora"
    icon: "info.circle.fill"

    Component.onCompleted: Autostart.refresh()

    SettingsSection {
        title: "App Info"

        SettingsCard {
            RowLayout {
                Layout.fillWidth: true
                spacing: 14

                Image {
                    objectName: "appLogo"
                    Layout.preferredWidth: 56
                    Layout.preferredHeight: 56
                    sourceSize.width: 112
                    sourceSize.height: 112
                    fillMode: Image.PreserveAspectFit
                    source: "qrc:/qt/qml/Kivora/assets/kivora-dot-transparent.svg"
                }
                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2
                    Text {
                        objectName: "appName"
                        text: "Kivora"
                        font: Theme.title
                        color: Theme.primaryText
                    }
                    Text {
                        objectName: "appVersion"
                        text: "Version 1.0.0 (Build 1)"
                        font: Theme.body
                        color: Theme.secondaryText
                    }
                }
            }
        }
    }

    SettingsSection {
        title: "Description"

        SettingsCard {
            ParagraphText {
                text: "Kivora helps you manage multiple git identities across different projects and machines."
            }
            ParagraphText {
                text: "Switch between git profiles instantly with a single click from your menu bar."
            }
        }
    }

    SettingsSection {
        title: "Quick Links"

        SettingsCard {
            LinkRow {
                objectName: "link:Website"
                symbol: "globe"
                text: "Website"
                url: page.websiteUrl
                onClicked: page.openLink(url)
            }
            LinkRow {
                objectName: "link:Documentation"
                symbol: "book"
                text: "Documentation"
                url: page.documentationUrl
                onClicked: page.openLink(url)
            }
            LinkRow {
                objectName: "link:Support"
                symbol: "questionmark.circle"
                text: "Support"
                url: page.supportUrl
                onClicked: page.openLink(url)
            }
            LinkRow {
                objectName: "link:Privacy Policy"
                symbol: "hand.raised"
                text: "Privacy Policy"
                url: page.privacyUrl
                onClicked: page.openLink(url)
            }
        }
    }

    SettingsSection {
        title: "Startup"

        SettingsCard {
            ToggleRow {
                objectName: "startAtLoginRow"
                title: "Start at login"
                description: "Open Kivora in the tray when you log in"
                checked: Autostart.enabled
                onToggled: value => Autostart.enabled = value
            }
            Text {
                objectName: "startAtLoginError"
                Layout.fillWidth: true
                visible: Autostart.errorMessage.length > 0
                text: Autostart.errorMessage
                font: Theme.subheadline
                color: Theme.red
                wrapMode: Text.WordWrap
            }
        }
    }

    ColumnLayout {
        objectName: "footer"
        Layout.fillWidth: true
        Layout.bottomMargin: 16
        spacing: 2

        Text {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: "Built with Qt"
            font: Theme.caption
            color: Theme.secondaryText
        }
        Text {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: "© 2026 Kivora. All rights reserved."
            font: Theme.caption
            color: Theme.tertiaryText
        }
    }
}
