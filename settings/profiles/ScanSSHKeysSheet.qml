// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// Walks the user through the key pairs in ~/.ssh, one at a time, asking for the git name and
// e-mail to use with each, and hands the collected entries to `scanned` when the user is done.
// It creates nothing itself; Cancel drops everything collected. The walk is the session's.
Rectangle {
    id: sheet

    readonly property KeyScanSession session: keyScan
    // The button Return presses: Add while keys are asked about, Done at the end.
    readonly property Item defaultButton: keyScan.isComplete ? doneButton
                                                             : keyScan.isAsking ? addButton : null

    // The collected entries, each a scannedKey.
    signal scanned(var entries)
    signal dismissed()

    // What Escape and closing the window mean: Cancel while keys are asked about, Done once
    // the import is complete (the entries the last step reports are handed over).
    function cancel() {
        if (keyScan.isComplete) {
            sheet.done()
        } else {
            sheet.dismissed()
        }
    }

    function done() {
        sheet.scanned(keyScan.profiles)
        sheet.dismissed()
    }

    implicitWidth: 450
    implicitHeight: layout.implicitHeight + 2 * Theme.scanSheetPadding
    color: Theme.windowBackground

    // The spinner gets a frame before the folder is read.
    Component.onCompleted: scanStart.start()

    KeyScanSession {
        id: keyScan
        onStepChanged: {
            if (keyScan.isAsking) {
                gitNameField.forceActiveFocus()
            }
        }
    }

    Timer {
        id: scanStart
        interval: 0
        onTriggered: keyScan.scan()
    }

    ColumnLayout {
        id: layout
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.scanSheetPadding
        spacing: Theme.spacingSection

        // Scanning
        Spinner {
            objectName: "scanningSpinner"
            visible: keyScan.isScanning
            Layout.alignment: Qt.AlignHCenter
            size: Theme.symbolXXL
        }
        Text {
            textFormat: Text.PlainText
            objectName: "scanningText"
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            visible: keyScan.isScanning
            Layout.alignment: Qt.AlignHCenter
            text: qsTr("Scanning ~/.ssh folder...")
            font: Theme.subheadline
            color: Theme.secondaryText
        }

        // One key
        ColumnLayout {
            objectName: "keyStep"
            visible: keyScan.isAsking
            Layout.fillWidth: true
            spacing: Theme.spacingXS
            Text {
                textFormat: Text.PlainText
                objectName: "stepText"
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                text: qsTr("SSH Key %1 of %2").arg(keyScan.currentIndex + 1).arg(keyScan.keys.length)
                font: Theme.headline
                color: Theme.primaryText
            }
            Text {
                textFormat: Text.PlainText
                objectName: "keyText"
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                Layout.fillWidth: true
                text: qsTr("Key: %1").arg(keyScan.currentKey)
                font: Theme.subheadline
                color: Theme.secondaryText
                elide: Text.ElideMiddle
            }
        }
        ColumnLayout {
            visible: keyScan.isAsking
            Layout.fillWidth: true
            spacing: Theme.spacingML
            TextInputField {
                id: gitNameField
                objectName: "gitNameField"
                Layout.fillWidth: true
                placeholderText: qsTr("Git Name")
                text: keyScan.gitName
                onTextEdited: keyScan.gitName = text
            }
            TextInputField {
                objectName: "gitEmailField"
                Layout.fillWidth: true
                placeholderText: qsTr("Git Email")
                text: keyScan.gitEmail
                onTextEdited: keyScan.gitEmail = text
            }
        }
        RowLayout {
            visible: keyScan.isAsking
            Layout.fillWidth: true
            spacing: Theme.spacingM
            PushButton {
                objectName: "cancelButton"
                text: qsTr("Cancel")
                onClicked: sheet.dismissed()
            }
            Item { Layout.fillWidth: true }
            PushButton {
                objectName: "skipButton"
                text: qsTr("Skip")
                onClicked: keyScan.nextKey()
            }
            PushButton {
                id: addButton
                objectName: "addButton"
                text: qsTr("Add")
                prominent: true
                onClicked: keyScan.addCurrentKey()
            }
        }

        // Done
        ColumnLayout {
            objectName: "completionStep"
            visible: keyScan.isComplete
            Layout.fillWidth: true
            spacing: Theme.spacingM
            SymbolIcon {
                Layout.alignment: Qt.AlignHCenter
                name: "checkmark.circle.fill"
                color: Theme.green
                size: Theme.headerIconSize
            }
            Text {
                textFormat: Text.PlainText
                Layout.fillWidth: true
                Layout.topMargin: Theme.spacingXS
                horizontalAlignment: Text.AlignHCenter
                text: qsTr("Import Complete")
                font: Theme.headline
                color: Theme.primaryText
            }
            Text {
                textFormat: Text.PlainText
                objectName: "createdText"
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                text: keyScan.createdText
                font: Theme.subheadline
                color: Theme.secondaryText
            }
            PushButton {
                id: doneButton
                objectName: "doneButton"
                Layout.alignment: Qt.AlignHCenter
                Layout.topMargin: Theme.spacingL
                text: qsTr("Done")
                prominent: true
                onClicked: sheet.done()
            }
        }
    }
}
