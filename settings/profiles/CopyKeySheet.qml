import QtQuick
import QtQuick.Layouts
import Kivora

// Shown after a new key was made and its public key put on the clipboard: where to paste it,
// with a button that opens the hosting service's SSH key settings in the browser.
Rectangle {
    id: sheet

    readonly property url keySettingsPage: "https://github.com/settings/keys"

    signal done()

    function openKeySettings() {
        Qt.openUrlExternally(sheet.keySettingsPage)
    }

    implicitWidth: 400
    implicitHeight: layout.implicitHeight + 56
    color: Theme.windowBackground

    ColumnLayout {
        id: layout
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 28
        spacing: 12

        SymbolIcon {
            Layout.alignment: Qt.AlignHCenter
            name: "checkmark.circle.fill"
            color: Theme.green
            size: 50
        }
        Text {
            objectName: "sheetTitle"
            Layout.alignment: Qt.AlignHCenter
            text: "SSH Key Generated!"
            font: Theme.headline
            color: Theme.primaryText
        }
        Text {
            objectName: "copiedText"
            Layout.alignment: Qt.AlignHCenter
            text: "Your public key has been copied to clipboard."
            font: Theme.subheadline
            color: Theme.secondaryText
        }

        Rectangle {
            Layout.fillWidth: true
            Layout.topMargin: 4
            implicitHeight: box.implicitHeight + 24
            radius: 10
            color: Theme.cardBackground
            border.width: 1
            border.color: Theme.cardBorder

            ColumnLayout {
                id: box
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.top: parent.top
                anchors.margins: 12
                spacing: 10

                Text {
                    objectName: "instructionText"
                    Layout.fillWidth: true
                    text: "Paste your key in GitHub Settings → SSH and GPG keys → New SSH key"
                    font: Theme.subheadline
                    color: Theme.primaryText
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                }
                SheetButton {
                    objectName: "openKeySettingsButton"
                    Layout.alignment: Qt.AlignHCenter
                    text: "Open GitHub SSH Keys"
                    symbol: "arrow.up.forward.square"
                    onClicked: sheet.openKeySettings()
                }
            }
        }

        SheetButton {
            objectName: "doneButton"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 4
            text: "Done"
            prominent: true
            onClicked: sheet.done()
        }
    }
}
