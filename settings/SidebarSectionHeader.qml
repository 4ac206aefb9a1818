// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// A section title in the settings sidebar.
Text {
    textFormat: Text.PlainText
    width: parent ? parent.width : implicitWidth
    topPadding: Theme.spacingXL
    bottomPadding: Theme.spacingXS
    leftPadding: Theme.spacingML
    font.family: Theme.caption.family
    font.pixelSize: Theme.caption.pixelSize
    font.weight: Font.DemiBold
    color: Theme.tertiaryText
}
