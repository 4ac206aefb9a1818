// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Window
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Kivora

// The updater's window: checking, up to date, an update found (version, notes, Download and
// Later) or the error of the last check. Return presses the default button (Download, or OK),
// Escape closes the window.
Window {
    id: window

    readonly property int updateState: Updater.state

    title: qsTr("Software Update")

    function pressDefault() {
        (downloadButton.visible ? downloadButton : okButton).clicked()
    }
    width: 460
    height: layout.implicitHeight + 2 * Theme.spacingPage
    minimumWidth: 380
    color: Theme.windowBackground

    ColumnLayout {
        id: layout
        anchors.fill: parent
        anchors.margins: Theme.spacingPage
        spacing: Theme.spacingXL
        focus: true

        Keys.onEscapePressed: window.close()
        Keys.onReturnPressed: window.pressDefault()
        Keys.onEnterPressed: window.pressDefault()

        RowLayout {
            spacing: Theme.spacingXXL
            Image {
                Layout.alignment: Qt.AlignTop
                source: "qrc:/qt/qml/Kivora/assets/kivora-logo.svg"
                sourceSize.width: Theme.logoSize
                sourceSize.height: Theme.logoSize
            }
            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.spacingS
                Text {
                    textFormat: Text.PlainText
                    objectName: "updaterHeadline"
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                    Layout.fillWidth: true
                    font: Theme.headline
                    color: Theme.primaryText
                    wrapMode: Text.WordWrap
                    text: {
                        switch (window.updateState) {
                        case Updater.Checking: return qsTr("Checking for updates…")
                        case Updater.UpToDate: return qsTr("You're up to date!")
                        case Updater.UpdateFound: return qsTr("A new version of Kivora is available!")
                        case Updater.Error: return qsTr("Update Error")
                        default: return qsTr("Software Update")
                        }
                    }
                }
                Text {
                    textFormat: Text.PlainText
                    objectName: "updaterDetail"
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                    Layout.fillWidth: true
                    font: Theme.body
                    color: Theme.secondaryText
                    wrapMode: Text.WordWrap
                    text: {
                        switch (window.updateState) {
                        case Updater.UpToDate:
                            return qsTr("Kivora %1 is currently the newest version available.")
                                    .arg(Updater.currentVersion)
                        case Updater.UpdateFound:
                            return qsTr("Kivora %1 is now available — you have %2.")
                                    .arg(Updater.availableVersion).arg(Updater.currentVersion)
                        case Updater.Error: return Updater.errorMessage
                        default: return ""
                        }
                    }
                    visible: text.length > 0
                }
                BusyIndicator {
                    visible: window.updateState === Updater.Checking
                    running: visible
                    implicitWidth: Theme.rowButtonSize
                    implicitHeight: Theme.rowButtonSize
                }
            }
        }

        ScrollView {
            objectName: "releaseNotes"
            visible: window.updateState === Updater.UpdateFound && Updater.releaseNotes.length > 0
            Layout.fillWidth: true
            Layout.preferredHeight: 180
            clip: true
            TextArea {
                readOnly: true
                text: Updater.releaseNotes
                textFormat: TextEdit.AutoText
                wrapMode: TextEdit.Wrap
                font: Theme.body
                color: Theme.primaryText
                background: Rectangle {
                    radius: Theme.cornerRadius
                    color: Theme.cardBackground
                    border.color: Theme.cardBorder
                }
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spacingM
            Item { Layout.fillWidth: true }
            PushButton {
                objectName: "laterButton"
                visible: window.updateState === Updater.UpdateFound
                text: qsTr("Later")
                onClicked: window.close()
            }
            PushButton {
                id: downloadButton
                objectName: "downloadButton"
                visible: window.updateState === Updater.UpdateFound
                prominent: true
                text: qsTr("Download")
                onClicked: {
                    Qt.openUrlExternally(Updater.downloadUrl)
                    window.close()
                }
            }
            PushButton {
                id: okButton
                objectName: "okButton"
                visible: window.updateState !== Updater.UpdateFound
                prominent: window.updateState !== Updater.Checking
                text: window.updateState === Updater.Checking ? qsTr("Cancel") : qsTr("OK")
                onClicked: window.close()
            }
        }
    }
}
