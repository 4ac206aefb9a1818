// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A paragraph of a page, wrapped to the card's width.
Text {
    textFormat: Text.PlainText
    property bool secondary: false

    Layout.fillWidth: true
    font: Theme.body
    color: secondary ? Theme.secondaryText : Theme.primaryText
    wrapMode: Text.WordWrap
    lineHeight: 1.1
}
