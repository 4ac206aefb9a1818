import QtQuick
import QtQuick.Layouts
import Kivora

// Walks the user through the key pairs in ~/.ssh, one at a time, asking for the git name and
// e-mail to use with each, and hands the collected entries to `scanned` when the user is done.
// It creates nothing itself; Cancel drops everything collected.
Rectangle {
    id: sheet

    // Each entry: { keyName, name, email }.
    signal scanned(var entries)
    signal dismissed()

    property var keys: []
    property int currentIndex: 0
    property string gitName: ""
    property string gitEmail: ""
    property var profiles: []
    property bool isScanning: true

    readonly property bool isAsking: !isScanning && currentIndex < keys.length
    readonly property string currentKey: isAsking ? keys[currentIndex] : ""
    readonly property string createdText: profiles.length + " profile"
                                          + (profiles.length === 1 ? "" : "s") + " created"

    function scanKeys() {
        sheet.keys = keyScan.scanKeys()
        sheet.isScanning = false
    }

    function nextKey() {
        sheet.gitName = ""
        sheet.gitEmail = ""
        sheet.currentIndex += 1
    }

    function addCurrentKey() {
        sheet.profiles = sheet.profiles.concat([{ keyName: sheet.currentKey,
                                                  name: sheet.gitName,
                                                  email: sheet.gitEmail }])
        sheet.nextKey()
    }

    function cancel() {
        sheet.dismissed()
    }

    function done() {
        sheet.scanned(sheet.profiles)
        sheet.dismissed()
    }

    implicitWidth: 450
    implicitHeight: layout.implicitHeight + 60
    color: Theme.windowBackground

    // The spinner gets a frame before the folder is read.
    Component.onCompleted: scanStart.start()

    onCurrentKeyChanged: {
        if (sheet.isAsking) {
            gitNameField.forceActiveFocus()
        }
    }

    SSHKeyScan { id: keyScan }

    Timer {
        id: scanStart
        interval: 0
        onTriggered: sheet.scanKeys()
    }

    ColumnLayout {
        id: layout
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 30
        spacing: 20

        // Scanning
        SheetSpinner {
            objectName: "scanningSpinner"
            visible: sheet.isScanning
            Layout.alignment: Qt.AlignHCenter
            size: 22
        }
        Text {
            objectName: "scanningText"
            visible: sheet.isScanning
            Layout.alignment: Qt.AlignHCenter
            text: "Scanning ~/.ssh folder..."
            font: Theme.subheadline
            color: Theme.secondaryText
        }

        // One key
        ColumnLayout {
            objectName: "keyStep"
            visible: sheet.isAsking
            Layout.fillWidth: true
            spacing: 4
            Text {
                objectName: "stepText"
                text: "SSH Key " + (sheet.currentIndex + 1) + " of " + sheet.keys.length
                font: Theme.headline
                color: Theme.primaryText
            }
            Text {
                objectName: "keyText"
                Layout.fillWidth: true
                text: "Key: " + sheet.currentKey
                font: Theme.subheadline
                color: Theme.secondaryText
                elide: Text.ElideMiddle
            }
        }
        ColumnLayout {
            visible: sheet.isAsking
            Layout.fillWidth: true
            spacing: 10
            SheetTextField {
                id: gitNameField
                objectName: "gitNameField"
                Layout.fillWidth: true
                placeholderText: "Git Name"
                text: sheet.gitName
                onTextEdited: sheet.gitName = text
            }
            SheetTextField {
                objectName: "gitEmailField"
                Layout.fillWidth: true
                placeholderText: "Git Email"
                text: sheet.gitEmail
                onTextEdited: sheet.gitEmail = text
            }
        }
        RowLayout {
            visible: sheet.isAsking
            Layout.fillWidth: true
            spacing: 8
            SheetButton {
                objectName: "cancelButton"
                text: "Cancel"
                onClicked: sheet.cancel()
            }
            Item { Layout.fillWidth: true }
            SheetButton {
                objectName: "skipButton"
                text: "Skip"
                onClicked: sheet.nextKey()
            }
            SheetButton {
                objectName: "addButton"
                text: "Add"
                prominent: true
                onClicked: sheet.addCurrentKey()
            }
        }

        // Done
        ColumnLayout {
            objectName: "completionStep"
            visible: !sheet.isScanning && !sheet.isAsking
            Layout.fillWidth: true
            spacing: 8
            SymbolIcon {
                Layout.alignment: Qt.AlignHCenter
                name: "checkmark.circle.fill"
                color: Theme.green
                size: 40
            }
            Text {
                Layout.fillWidth: true
                Layout.topMargin: 4
                horizontalAlignment: Text.AlignHCenter
                text: "Import Complete"
                font: Theme.headline
                color: Theme.primaryText
            }
            Text {
                objectName: "createdText"
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                text: sheet.createdText
                font: Theme.subheadline
                color: Theme.secondaryText
            }
            SheetButton {
                objectName: "doneButton"
                Layout.alignment: Qt.AlignHCenter
                Layout.topMargin: 12
                text: "Done"
                prominent: true
                onClicked: sheet.done()
            }
        }
    }
}
