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

        Component {
            id: signalSpyComponent
            SignalSpy {}
        }
    }
}
