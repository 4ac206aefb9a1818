// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// A row that fades in while `shown` and out, then away, when not.
Row {
    id: row

    property bool shown: false
    property int duration: Theme.hoverDuration
    property int easing: Easing.InOutQuad

    opacity: shown ? 1 : 0
    visible: opacity > 0
    Behavior on opacity { NumberAnimation { duration: row.duration; easing.type: row.easing } }
}
