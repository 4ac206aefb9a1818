// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// A one-pixel separator line across the parent's width.
Rectangle {
    implicitHeight: 1
    implicitWidth: 1
    color: Theme.separator
}
