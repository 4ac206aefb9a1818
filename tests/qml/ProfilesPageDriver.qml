// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// What the profiles page tests do to the page as a user would: make it, find its rows,
// hover them, ask to delete, type into the editor. The test cases hold the assertions.
QtObject {
    id: driver

    required property TestCase testCase
    // Where pages are made, and how.
    required property Item stage
    required property Component pageComponent

    function makePage() {
        const page = testCase.createTemporaryObject(driver.pageComponent, driver.stage)
        testCase.waitForRendering(page)
        return page
    }

    // The row shown at a position (rows of an earlier list may still await deletion).
    function row(page, index) {
        const list = testCase.findChild(page, "profileList")
        for (let i = 0; i < list.children.length; ++i) {
            const candidate = list.children[i]
            if (candidate.objectName === "profileRow:" + index) {
                return candidate
            }
        }
        return null
    }

    // Hovers the row and returns its edit or delete button once it shows.
    function rowButton(page, index, name) {
        const target = driver.row(page, index)
        driver.hover(target)
        const button = testCase.findChild(target, name)
        testCase.tryVerify(() => button.visible && button.opacity === 1)
        return button
    }

    function rowNamed(page, name) {
        for (let i = 0; i < page.profileCount; ++i) {
            const candidate = driver.row(page, i)
            if (candidate && candidate.profileName === name) {
                return candidate
            }
        }
        return null
    }

    // Moves the pointer onto the item. Once a sheet's window had the pointer, the test
    // window takes a first move only as the pointer coming back in, so it moves on until
    // the item notices.
    function hover(item) {
        for (let step = 2; step >= 0; --step) {
            testCase.mouseMove(item, item.width / 2 - step, item.height / 2)
            testCase.wait(0)
        }
        testCase.tryVerify(() => item.isHovered)
    }

    // Hovers the row, presses its delete button and returns the open confirmation.
    function askToDelete(page, index) {
        testCase.mouseClick(driver.rowButton(page, index, "deleteButton"))
        const dialog = testCase.findChild(driver.row(page, index), "deleteConfirmation")
        testCase.tryVerify(() => dialog.opened)
        return dialog
    }

    function dialogButton(dialog, name) {
        return testCase.findChild(dialog.contentItem, name)
    }

    function keyProfiles() {
        ProfilesFixture.arrangeProfiles([
            { name: "Work", gitName: "Ada", gitEmail: "ada@work.example",
              sshKeyPath: "~/.ssh/id_work" },
            { name: "Home", gitName: "Ada L", gitEmail: "ada@home.example" }
        ], -1)
        ProfilesFixture.writeHomeFile(".ssh/id_work", "private\n")
        ProfilesFixture.writeHomeFile(".ssh/id_work.pub", "ssh-ed25519 AAAA ada\n")
    }

    // Types into the editor's field, replacing what it holds.
    function typeInto(field, text) {
        field.forceActiveFocus()
        field.selectAll()
        testCase.keyClick(Qt.Key_Delete)
        for (const character of text) {
            testCase.keyClick(character)
        }
    }

    function fillEditor(editor, name, gitName, gitEmail) {
        editor.form.name = name
        editor.form.gitName = gitName
        editor.form.gitEmail = gitEmail
    }
}
