// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Window
import Kivora

// The small preferences window with the update view.
Window {
    id: window

    title: qsTr("Kivora Preferences")
    width: 360
    height: Math.max(150, view.implicitHeight)
    minimumWidth: 300
    minimumHeight: 130
    color: Theme.windowBackground

    UpdaterView {
        id: view
        anchors.fill: parent
        focus: true
        Keys.onEscapePressed: window.close()
    }
}
