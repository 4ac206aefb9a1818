// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora

// The TestCase item itself is invisible, so the views are made on a visible stage beside it.
Item {
    width: 400
    height: 200

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "ProfileRow"
        when: windowShown

        Component {
            id: rowComponent
            ProfileRow {
                width: 360
                profileName: "Work"
                identity: "Ada Lovelace · ada@work.example"
            }
        }

        function sameColor(a, b) {
            return Qt.colorEqual(a, b)
        }

        function test_activeRowShowsFilledGreenDot() {
            const row = createTemporaryObject(rowComponent, stage, { active: true })
            const dot = findChild(row, "statusDot")
            tryVerify(() => sameColor(dot.color, Theme.green))
            verify(sameColor(dot.border.color, Theme.green))
            verify(!findChild(row, "switchedLabel").visible)
        }

        function test_inactiveRowShowsAnOutlineOnly() {
            const row = createTemporaryObject(rowComponent, stage, { active: false })
            const dot = findChild(row, "statusDot")
            compare(dot.color.a, 0)
            verify(dot.border.color.a > 0)
            verify(!sameColor(dot.border.color, Theme.green))
        }

        function test_activeAndJustSwitchedShowsDotAndSwitchedTogether() {
            const row = createTemporaryObject(rowComponent, stage,
                                              { active: true, justSwitched: true })
            const label = findChild(row, "switchedLabel")
            tryCompare(label, "opacity", 1)
            verify(label.visible)
            verify(sameColor(findChild(row, "statusDot").color, Theme.green))
        }

        function test_switchedMarkFadesWhenCleared() {
            const row = createTemporaryObject(rowComponent, stage,
                                              { active: true, justSwitched: true })
            const label = findChild(row, "switchedLabel")
            tryCompare(label, "opacity", 1)
            row.justSwitched = false
            tryCompare(label, "visible", false)
        }

        function test_clickSwitches() {
            const row = createTemporaryObject(rowComponent, stage)
            const spy = createTemporaryObject(signalSpyComponent, testCase,
                                              { target: row, signalName: "switchRequested" })
            mouseClick(row, 40, row.height / 2)
            compare(spy.count, 1)
        }

        function test_hoverShowsTheThreeActionsWithTheirTooltips() {
            const row = createTemporaryObject(rowComponent, stage)
            const actions = findChild(row, "hoverActions")
            verify(!actions.visible)
            mouseMove(row, 40, row.height / 2)
            tryCompare(actions, "opacity", 1)
            compare(findChild(row, "terminalButton").tooltip, "Open Terminal")
            compare(findChild(row, "editButton").tooltip, "Edit")
            compare(findChild(row, "deleteButton").tooltip, "Delete")
            verify(sameColor(findChild(row, "deleteButton").foreground, Theme.red))
        }

        // Every Text under `item` whose text is `value`.
        function textsShowing(item, value) {
            let found = []
            for (let i = 0; i < item.children.length; ++i) {
                const child = item.children[i]
                if (child.text === value && child.contentWidth !== undefined)
                    found.push(child)
                found = found.concat(textsShowing(child, value))
            }
            return found
        }

        // A name or identity from an imported file is shown as the characters it holds: markup
        // in it is never interpreted (no styling, no image fetched from an address).
        function test_markupInNamesIsShownAsTyped() {
            // Short enough to fit unelided: interpreted, the tags would take no room.
            const name = "<b>W</b>"
            const identity = "<i>Ada</i> · a@w"
            const row = createTemporaryObject(rowComponent, stage,
                                              { profileName: name, identity: identity })
            for (const value of [name, identity]) {
                const shown = textsShowing(row, value)
                verify(shown.length > 0, "no text shows " + value)
                for (const text of shown) {
                    const literal = createTemporaryObject(plainTextComponent, stage,
                                                          { text: value, font: text.font,
                                                            width: text.width,
                                                            elide: text.elide,
                                                            wrapMode: text.wrapMode })
                    compare(text.contentWidth, literal.contentWidth)
                }
            }
        }

        Component {
            id: plainTextComponent
            Text { textFormat: Text.PlainText }
        }

        Component {
            id: signalSpyComponent
            SignalSpy {}
        }
    }
}
