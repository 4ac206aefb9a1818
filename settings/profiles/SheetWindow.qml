// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Window
import QtQuick.Templates as T
import Kivora

// A modal dialog window over another window, centred on its owner and as big as the sheet it
// holds, but never taller than the owner less a margin: a taller sheet scrolls inside. Closing it from the
// window manager or with Escape asks the owner to dismiss it; what that means is the sheet's
// own (the key scan's last step takes it as "Done"). Return presses `defaultButton` while it is
// shown and enabled, unless the focused control takes Return itself (a focused button presses
// itself, an open picker chooses).
Window {
    id: sheetWindow

    // The window this one is modal for (any QWindow).
    property var owner
    // The sheet shown, sized by its implicit size.
    default property Item sheet
    // The button Return presses (Save, Add, Generate, Done).
    property Item defaultButton: null

    signal dismissRequested()

    flags: Qt.Dialog
    modality: Qt.WindowModal
    transientParent: owner
    color: Theme.windowBackground
    visible: true

    width: sheet ? sheet.implicitWidth : 0
    height: !sheet ? 0
                   : owner && owner.height > 0
                     ? Math.min(sheet.implicitHeight, owner.height - 2 * Theme.spacingPage)
                     : sheet.implicitHeight
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    x: owner ? owner.x + Math.round((owner.width - width) / 2) : 0
    y: owner ? Math.max(0, owner.y + Math.round((owner.height - height) / 2)) : 0

    onSheetChanged: {
        if (sheet) {
            sheet.parent = sheetWindow.frame
            sheet.anchors.fill = sheetWindow.frame
        }
    }

    // Holds the sheet; the keys no control inside took come here. (A property, since the
    // window's default property is the sheet.)
    readonly property FocusScope frame: FocusScope {
        parent: sheetWindow.contentItem
        anchors.fill: parent
        focus: true

        Keys.onEscapePressed: sheetWindow.dismissRequested()
        Keys.onReturnPressed: sheetWindow.pressDefault()
        Keys.onEnterPressed: sheetWindow.pressDefault()
    }

    function pressDefault() {
        const button = sheetWindow.defaultButton as T.AbstractButton
        if (button && button.visible && button.enabled)
            button.clicked()
    }

    // A sheet comes up with the keyboard, as a dialog does (asked again until the window is
    // there to take it), and gives it back to its owner when it goes.
    readonly property Timer activation: Timer {
        property int tries: 0
        interval: 50
        repeat: true
        running: !sheetWindow.active && tries < 40
        onTriggered: {
            tries++
            sheetWindow.requestActivate()
        }
    }

    Component.onDestruction: {
        if (owner)
            owner.requestActivate()
    }

    onClosing: close => {
        close.accepted = false
        sheetWindow.dismissRequested()
    }
}
