// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// A small circle that marks a state: filled in `tint` when `on`, an outline otherwise.
Rectangle {
    id: dot

    property bool on: false
    property color tint: Theme.green
    property color outline: Theme.secondaryText
    property int size: Theme.markDotSize
    property int outlineWidth: 1

    implicitWidth: size
    implicitHeight: size
    radius: size / 2
    color: on ? tint : "transparent"
    border.width: outlineWidth
    border.color: on ? tint : outline
    Behavior on color { ColorAnimation { duration: Theme.statusDuration; easing.type: Easing.InOutQuad } }
    Behavior on border.color { ColorAnimation { duration: Theme.statusDuration; easing.type: Easing.InOutQuad } }
}
