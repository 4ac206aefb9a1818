// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// Walks the rows of a list with the keyboard. The rows are the visible items under `root`
// whose `navigable` property is true, top to bottom. The list is one stop of the Tab chain:
// only `tabStop` takes the focus from Tab, which is the row focused last, else the row whose
// `preferredStop` is true (the active profile, the selected page), else the first. A row
// hands its keys to `handleKey` (arrows, Home, End), tells `focused` when it gets the focus,
// and `changed` when it comes, goes, is shown or hidden or changes `preferredStop`.
QtObject {
    id: navigator

    required property Item root
    property Item current: null
    // Worked out again (`refresh`) soon after the rows change and at once when one is focused.
    property Item tabStop: null

    readonly property Timer refreshSoon: Timer {
        interval: 0
        onTriggered: navigator.refresh()
    }

    function refresh() {
        const all = navigator.rows()
        navigator.tabStop = navigator.current && all.indexOf(navigator.current) >= 0
                            ? navigator.current : navigator.preferredRow(all)
    }

    // The row marked preferred, else the first; null without rows.
    function preferredRow(all: var): Item {
        for (const row of all) {
            if (row.preferredStop === true)
                return row
        }
        return all.length > 0 ? all[0] : null
    }

    // Focuses the preferred row (see `preferredRow`); false without rows.
    function focusPreferred(): bool {
        return navigator.focusRow(navigator.preferredRow(navigator.rows()))
    }

    function rows(): var {
        const found = []
        const visit = item => {
            const children = item.children
            for (let i = 0; i < children.length; ++i) {
                const child = children[i]
                if (!child.visible)
                    continue
                if (child.navigable === true)
                    found.push(child)
                else
                    visit(child)
            }
        }
        if (navigator.root)
            visit(navigator.root)
        return found
    }

    function changed() {
        navigator.refreshSoon.restart()
    }

    function focused(row: Item) {
        navigator.current = row
        navigator.tabStop = row
        navigator.reveal(row)
    }

    // Gives the row the focus as the keyboard would, so that its focus ring shows.
    function focusRow(row: Item): bool {
        if (!row)
            return false
        // The row's focus handler makes it the current row and the Tab stop.
        row.forceActiveFocus(Qt.TabFocusReason)
        navigator.reveal(row)
        return true
    }

    function step(from: Item, delta: int): bool {
        const all = navigator.rows()
        const at = all.indexOf(from)
        const next = at + delta
        if (at < 0 || next < 0 || next >= all.length)
            return false
        return navigator.focusRow(all[next])
    }

    function first(): bool {
        const all = navigator.rows()
        return all.length > 0 && navigator.focusRow(all[0])
    }

    function last(): bool {
        const all = navigator.rows()
        return all.length > 0 && navigator.focusRow(all[all.length - 1])
    }

    // Handles the keys that move between rows; true when the key was one of them.
    function handleKey(from: Item, event: KeyEvent): bool {
        switch (event.key) {
        case Qt.Key_Up:
            navigator.step(from, -1)
            return true
        case Qt.Key_Down:
            navigator.step(from, 1)
            return true
        case Qt.Key_Home:
            navigator.first()
            return true
        case Qt.Key_End:
            navigator.last()
            return true
        default:
            return false
        }
    }

    // Scrolls the nearest flickable around the row so that the row is in view.
    function reveal(row: Item) {
        let flick = row.parent
        while (flick && !(flick instanceof Flickable))
            flick = flick.parent
        if (!flick)
            return
        const view = flick as Flickable
        const top = row.mapToItem(view.contentItem, 0, 0).y
        if (top < view.contentY) {
            view.contentY = Math.max(0, top)
        } else if (top + row.height > view.contentY + view.height) {
            view.contentY = Math.min(Math.max(0, view.contentHeight - view.height),
                                     top + row.height - view.height)
        }
    }

    onRootChanged: navigator.changed()
}
