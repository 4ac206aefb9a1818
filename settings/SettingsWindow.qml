// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Window
import Kivora

// The settings window: 1100 × 650, not resizable. Its content is built each time the window
// opens, so that it starts again with Profiles selected, an empty search and no favourites.
Window {
    id: window

    title: qsTr("Kivora Settings")
    width: 1100
    height: 650
    minimumWidth: 1100
    maximumWidth: 1100
    minimumHeight: 650
    maximumHeight: 650
    color: Theme.windowBackground

    // Ctrl+W closes it, as it closes a window in the desktop's own applications.
    Shortcut {
        sequences: [StandardKey.Close]
        onActivated: window.close()
    }

    Loader {
        anchors.fill: parent
        active: window.visible
        sourceComponent: SettingsView {}
    }
}
