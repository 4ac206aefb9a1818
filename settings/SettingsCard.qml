// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A rounded panel holding a group of settings, full width, content at the leading edge.
Rectangle {
    id: card

    default property alias content: body.data

    Layout.fillWidth: true
    implicitHeight: body.implicitHeight + 2 * Theme.spacingXXL
    implicitWidth: body.implicitWidth + 2 * Theme.spacingXXL
    radius: Theme.cardRadius
    color: Theme.cardBackground
    border.color: Theme.cardBorder
    border.width: 1

    ColumnLayout {
        id: body
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.spacingXXL
        spacing: Theme.spacingL
    }
}
