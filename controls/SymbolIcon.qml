// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// A named symbol ("person.fill", "key.fill", …) drawn square at `size` in one palette colour.
// The image comes from the "symbol" image provider, which draws the icon theme's symbolic icon
// or Kivora's packaged drawing (SymbolTable decides which) and tints it, so the symbol follows
// the light and dark palettes. An empty name draws nothing.
Image {
    id: icon

    property string name
    property color color: "black"
    property int size: Theme.symbolXL

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    fillMode: Image.PreserveAspectFit
    asynchronous: false
    source: name.length > 0 ? "image://symbol/" + color.toString().substring(1) + "/" + name : ""
}
