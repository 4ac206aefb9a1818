// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// The keyboard focus indicator: a ring in the focus colour around the item it is placed in
// (a control's background, or a row), shown while `shown`. Outside the item with a small gap
// by default; `inset` draws it just inside, for rows in a clipped list. The ring stands out by
// at least 3 : 1 from every surface, in light and dark.
Rectangle {
    id: ring

    property bool shown: false
    property bool inset: false
    // The corner radius of the item it surrounds.
    property real itemRadius: 0

    readonly property real outset: inset ? 0 : Theme.focusRingGap + Theme.focusRingWidth

    objectName: "focusRing"
    anchors.fill: parent
    anchors.margins: -outset
    radius: itemRadius > 0 ? itemRadius + outset : 0
    color: "transparent"
    border.width: Theme.focusRingWidth
    border.color: Theme.focusRing
    visible: shown
    z: 100
}
