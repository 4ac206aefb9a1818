// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora

// What the profile editor tests do to the sheet as a user would: make it over a profile on
// the stage, find its controls, scroll them into view, click, type and pick. The test cases
// hold the assertions; `savedSpy` and `dismissedSpy` follow the sheet made last.
QtObject {
    id: driver

    required property TestCase testCase
    required property Item stage

    readonly property Component editorComponent: Component {
        ProfileEditorSheet {
            objectName: "editor"
            anchors.fill: parent
        }
    }
    readonly property SignalSpy savedSpy: SignalSpy { signalName: "saved" }
    readonly property SignalSpy dismissedSpy: SignalSpy { signalName: "dismissed" }

    function makeEditor(profile) {
        const editor = testCase.createTemporaryObject(driver.editorComponent, driver.stage, { profile: profile })
        driver.savedSpy.clear()
        driver.savedSpy.target = editor
        driver.dismissedSpy.clear()
        driver.dismissedSpy.target = editor
        return editor
    }

    function field(editor, name) {
        return testCase.findChild(editor, name)
    }

    // Scrolls one of the form's controls into view, once the form's layout has settled.
    function reveal(editor, item) {
        const view = testCase.findChild(editor, "formScroll")
        let inForm = false
        for (let parent = item.parent; parent; parent = parent.parent) {
            inForm = inForm || parent === view
        }
        if (!inForm) {
            return
        }
        testCase.waitForItemPolished(testCase.findChild(editor, "formColumn"))
        testCase.tryVerify(() => {
            editor.reveal(item)
            const top = item.mapToItem(view, 0, 0).y
            return top >= 0 && top + item.height <= view.height
        })
        testCase.waitForRendering(editor)
        editor.reveal(item)
    }

    // Clicks one of the form's controls, scrolled into view first.
    function press(editor, name) {
        const item = driver.field(editor, name)
        driver.reveal(editor, item)
        testCase.mouseClick(item)
    }

    function typeInto(item, text) {
        item.forceActiveFocus()
        item.selectAll()
        testCase.keyClick(Qt.Key_Delete)
        for (const character of text) {
            testCase.keyClick(character)
        }
    }

    // Chooses an entry of a picker as the user does: the pop-up's row for it.
    function pick(picker, value) {
        let editor = picker.parent
        while (editor && editor.objectName !== "editor") {
            editor = editor.parent
        }
        driver.reveal(editor, picker)
        testCase.mouseClick(picker)
        testCase.tryVerify(() => picker.popup.opened)
        const index = picker.model.indexOf(value)
        testCase.verify(index >= 0, value)
        const list = picker.popup.contentItem
        list.positionViewAtIndex(index, ListView.Contain)
        testCase.tryVerify(() => list.itemAtIndex(index) !== null)
        testCase.waitForRendering(list)
        testCase.mouseClick(list.itemAtIndex(index))
        testCase.tryVerify(() => !picker.popup.visible)
    }
}
