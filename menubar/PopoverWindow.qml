// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Window
import Kivora

// The popover's window: frameless beside the tray icon (the application places it), closed
// by Escape. The application closes it when it loses focus. Each time it opens, the keyboard
// focus is on the active profile's row. Its size is fixed to its content (minimum = maximum):
// a tiling Wayland compositor floats such a window at its natural size instead of tiling it
// over the screen.
Window {
    id: window

    title: "Kivora"

    onVisibleChanged: {
        if (visible)
            view.focusActiveRow()
    }
    width: view.implicitWidth
    height: view.implicitHeight
    minimumWidth: view.implicitWidth
    maximumWidth: view.implicitWidth
    minimumHeight: view.implicitHeight
    maximumHeight: view.implicitHeight
    color: Theme.popoverBackground
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint

    MenuBarView {
        id: view
        objectName: "menuBarView"
        anchors.fill: parent
        focus: true
        onDismissRequested: window.hide()
    }

    // A hairline frame, since a frameless window has no decoration of its own.
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.color: Theme.border
        border.width: 1
    }
}
