// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A row's actions as a menu, for the keyboard (the Menu key or Shift+F10 on the row) and the
// right mouse button. `actions` lists them as the row's hover buttons do, each {name,
// tooltip, destructive}; `triggered` tells which was chosen. The menu is made for one
// opening: the row makes it over its window (so that it outlives a row its action deletes),
// and when it closes it gives the focus back to the row, when the row is still there and
// nothing else took the focus, and goes.
Menu {
    id: menu

    property var actions: []
    // The row it was opened from.
    property Item origin: null
    // The action chosen, told once the menu has closed: an action may end the row, and with
    // it the context the menu was made in.
    property string chosen

    signal triggered(string name)

    // Opens the menu at the item's leading edge, its first entry highlighted.
    function openAt(item: Item) {
        menu.popup(item, Theme.spacingL, item.height / 2)
        menu.currentIndex = 0
    }

    objectName: "rowActionsMenu"
    padding: Theme.spacingXS

    onClosed: {
        // Goes once this handler is done, whatever the row does meanwhile.
        menu.destroy()
        const row = menu.origin
        const window = row && row.visible ? row.Window.window : null
        const focused = window ? window.activeFocusItem : null
        if (window && (!focused || focused === window.contentItem))
            row.forceActiveFocus(Qt.TabFocusReason)
        if (menu.chosen.length > 0)
            menu.triggered(menu.chosen)
    }

    background: Rectangle {
        implicitWidth: 180
        radius: Theme.cornerRadius
        color: Theme.popoverBackground
        border.width: 1
        border.color: Theme.border
    }

    Instantiator {
        model: menu.actions
        delegate: MenuItem {
            id: entry

            required property var modelData

            objectName: modelData.name + "MenuItem"
            text: modelData.tooltip
            font: Theme.body
            onTriggered: menu.chosen = modelData.name

            contentItem: Text {
                textFormat: Text.PlainText
                leftPadding: Theme.spacingM
                rightPadding: Theme.spacingM
                text: entry.text
                font: entry.font
                color: entry.highlighted ? Theme.accentText
                                         : entry.modelData.destructive ? Theme.red : Theme.primaryText
                verticalAlignment: Text.AlignVCenter
            }
            background: Rectangle {
                implicitHeight: Theme.controlHeight
                radius: Theme.smallRadius
                color: entry.highlighted ? Theme.accentFill : "transparent"
            }
        }
        onObjectAdded: (index, object) => menu.insertItem(index, object as MenuItem)
        onObjectRemoved: (index, object) => menu.removeItem(object as MenuItem)
    }
}
