// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The TestCase item itself is invisible, so the sheet is made on a visible stage beside it.
Item {
    width: 450
    height: 400

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "ScanSSHKeysSheet"
        when: windowShown

        Component {
            id: sheetComponent
            ScanSSHKeysSheet {}
        }

        SignalSpy {
            id: scannedSpy
            signalName: "scanned"
        }

        SignalSpy {
            id: dismissedSpy
            signalName: "dismissed"
        }

        function init() {
            ProfilesFixture.removeHomeFolder(".ssh")
        }

        function writeKeys(names) {
            for (const name of names) {
                ProfilesFixture.writeHomeFile(".ssh/" + name, "x\n")
            }
        }

        function makeSheet() {
            const sheet = createTemporaryObject(sheetComponent, stage)
            scannedSpy.clear()
            scannedSpy.target = sheet
            dismissedSpy.clear()
            dismissedSpy.target = sheet
            tryCompare(sheet.session, "isScanning", false)
            return sheet
        }

        function typeInto(item, text) {
            item.forceActiveFocus()
            for (const character of text) {
                keyClick(character)
            }
        }

        function test_scanningStepComesFirst() {
            const sheet = createTemporaryObject(sheetComponent, stage)
            // Until the folder is read, only the spinner and its line show.
            verify(sheet.session.isScanning)
            verify(findChild(sheet, "scanningSpinner").visible)
            compare(findChild(sheet, "scanningText").text, "Scanning ~/.ssh folder...")
            verify(!findChild(sheet, "keyStep").visible)
            verify(!findChild(sheet, "completionStep").visible)
            tryCompare(sheet.session, "isScanning", false)
            verify(!findChild(sheet, "scanningText").visible)
            compare(sheet.width, 450)
        }

        function test_onlyPairsCount() {
            writeKeys(["id_rsa", "id_rsa.pub", "work.pub", "x.pub.pub"])
            const sheet = makeSheet()
            compare(sheet.session.keys, ["id_rsa"])
            compare(findChild(sheet, "stepText").text, "SSH Key 1 of 1")
            compare(findChild(sheet, "keyText").text, "Key: id_rsa")
        }

        function test_keysAreSorted() {
            writeKeys(["zeta", "zeta.pub", "id_rsa", "id_rsa.pub", "Work", "Work.pub",
                       "id_ed25519.pub", "id_ed25519"])
            const sheet = makeSheet()
            compare(sheet.session.keys, ["Work", "id_ed25519", "id_rsa", "zeta"])
            compare(findChild(sheet, "stepText").text, "SSH Key 1 of 4")
            compare(findChild(sheet, "keyText").text, "Key: Work")
        }

        function test_noFolderGoesStraightToCompletion() {
            const sheet = makeSheet()
            compare(sheet.session.keys, [])
            verify(!findChild(sheet, "keyStep").visible)
            verify(findChild(sheet, "completionStep").visible)
            compare(findChild(sheet, "createdText").text, "0 profiles created")
            mouseClick(findChild(sheet, "doneButton"))
            compare(scannedSpy.count, 1)
            compare(scannedSpy.signalArguments[0][0].length, 0)
            compare(dismissedSpy.count, 1)
        }

        function test_skippingEveryKeyCreatesNothing() {
            writeKeys(["a", "a.pub", "b", "b.pub"])
            const sheet = makeSheet()
            mouseClick(findChild(sheet, "skipButton"))
            compare(findChild(sheet, "stepText").text, "SSH Key 2 of 2")
            mouseClick(findChild(sheet, "skipButton"))
            verify(findChild(sheet, "completionStep").visible)
            compare(findChild(sheet, "createdText").text, "0 profiles created")
            mouseClick(findChild(sheet, "doneButton"))
            compare(scannedSpy.count, 1)
            compare(scannedSpy.signalArguments[0][0].length, 0)
        }

        function test_oneAddedKeyIsSingular() {
            writeKeys(["a", "a.pub", "b", "b.pub"])
            const sheet = makeSheet()
            typeInto(findChild(sheet, "gitNameField"), "Ada")
            typeInto(findChild(sheet, "gitEmailField"), "ada@example.com")
            mouseClick(findChild(sheet, "addButton"))
            mouseClick(findChild(sheet, "skipButton"))
            compare(findChild(sheet, "createdText").text, "1 profile created")
            mouseClick(findChild(sheet, "doneButton"))
            const entries = scannedSpy.signalArguments[0][0]
            compare(entries.length, 1)
            compare(entries[0].keyName, "a")
            compare(entries[0].name, "Ada")
            compare(entries[0].email, "ada@example.com")
        }

        function test_addAcceptsEmptyFields() {
            writeKeys(["a", "a.pub", "b", "b.pub"])
            const sheet = makeSheet()
            mouseClick(findChild(sheet, "addButton"))
            mouseClick(findChild(sheet, "addButton"))
            compare(findChild(sheet, "createdText").text, "2 profiles created")
            mouseClick(findChild(sheet, "doneButton"))
            const entries = scannedSpy.signalArguments[0][0]
            compare(entries.map(entry => entry.keyName), ["a", "b"])
            compare(entries[1].name, "")
            compare(entries[1].email, "")
        }

        function test_cancelOnTheSecondKeyDropsTheFirst() {
            writeKeys(["a", "a.pub", "b", "b.pub"])
            const sheet = makeSheet()
            typeInto(findChild(sheet, "gitNameField"), "Ada")
            mouseClick(findChild(sheet, "addButton"))
            compare(sheet.session.profiles.length, 1)
            compare(findChild(sheet, "stepText").text, "SSH Key 2 of 2")
            mouseClick(findChild(sheet, "cancelButton"))
            compare(dismissedSpy.count, 1)
            compare(scannedSpy.count, 0)
        }

        function test_fieldsAreEmptyAtEveryKey() {
            writeKeys(["a", "a.pub", "b", "b.pub", "c", "c.pub"])
            const sheet = makeSheet()
            const name = findChild(sheet, "gitNameField")
            const email = findChild(sheet, "gitEmailField")
            compare(name.placeholderText, "Git Name")
            compare(email.placeholderText, "Git Email")
            typeInto(name, "Ada")
            typeInto(email, "ada@example.com")
            mouseClick(findChild(sheet, "addButton"))
            compare(findChild(sheet, "keyText").text, "Key: b")
            compare(name.text, "")
            compare(email.text, "")
            typeInto(name, "Bob")
            typeInto(email, "bob@example.com")
            mouseClick(findChild(sheet, "skipButton"))
            compare(findChild(sheet, "keyText").text, "Key: c")
            compare(name.text, "")
            compare(email.text, "")
            compare(sheet.session.gitName, "")
            compare(sheet.session.gitEmail, "")
        }
    }
}
