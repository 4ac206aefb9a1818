import QtQuick
import QtQuick.Layouts
import Kivora

// The small form for a new SSH key: its file name in ~/.ssh (empty for "id_ed25519") and an
// optional passphrase. The values belong to the editor; "Generate" is never disabled.
Rectangle {
    id: sheet

    property string keyFilename: ""
    property bool usePassphrase: false
    property string passphrase: ""
    // Why the last attempt made no key (empty before one fails).
    property string error: ""

    signal generate()
    signal cancel()

    implicitWidth: 400
    implicitHeight: layout.implicitHeight + 48
    color: Theme.windowBackground

    Component.onCompleted: fileNameField.forceActiveFocus()

    ColumnLayout {
        id: layout
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 24
        spacing: 14

        Text {
            objectName: "sheetTitle"
            text: "Generate SSH Key"
            font: Theme.headline
            color: Theme.primaryText
        }

        SheetTextField {
            id: fileNameField
            objectName: "keyFilenameField"
            Layout.fillWidth: true
            placeholderText: "Filename (leave blank for id_ed25519)"
            text: sheet.keyFilename
            onTextEdited: sheet.keyFilename = text
        }

        SheetSwitch {
            objectName: "passphraseSwitch"
            Layout.fillWidth: true
            text: "Protect with passphrase"
            checked: sheet.usePassphrase
            onToggled: {
                sheet.usePassphrase = checked
                checked = Qt.binding(() => sheet.usePassphrase)
            }
        }

        SheetTextField {
            objectName: "passphraseField"
            visible: sheet.usePassphrase
            Layout.fillWidth: true
            secure: true
            placeholderText: "Passphrase"
            text: sheet.passphrase
            onTextEdited: sheet.passphrase = text
        }

        Text {
            objectName: "generateError"
            Layout.fillWidth: true
            visible: sheet.error.length > 0
            text: sheet.error
            font: Theme.subheadline
            color: Theme.red
            wrapMode: Text.Wrap
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: 6
            spacing: 8
            Item { Layout.fillWidth: true }
            SheetButton {
                objectName: "cancelButton"
                text: "Cancel"
                onClicked: sheet.cancel()
            }
            SheetButton {
                objectName: "generateButton"
                text: "Generate"
                prominent: true
                onClicked: sheet.generate()
            }
        }
    }
}
