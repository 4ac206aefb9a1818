// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// The active profile's avatar: a tinted circle with the application's mark in the chosen
// icon style.
Rectangle {
    id: avatar

    property string iconStyle: "dot"

    implicitWidth: Theme.headerIconSize
    implicitHeight: Theme.headerIconSize
    radius: width / 2
    color: Theme.faded(Theme.accent, 0.15)

    IconStyleMark {
        anchors.centerIn: parent
        iconStyle: avatar.iconStyle
    }
}
