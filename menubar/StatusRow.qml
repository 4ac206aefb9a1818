// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A status line of the popover: a label, then a value with an optional green dot.
RowLayout {
    id: row

    property string label
    property string value
    property bool showDot: false
    property color valueColor: Theme.secondaryText

    spacing: 0
    Accessible.role: Accessible.StaticText
    Accessible.name: label
    Accessible.description: value

    Text {
        textFormat: Text.PlainText
        text: row.label
        font: Theme.subheadline
        color: Theme.secondaryText
    }
    Item { Layout.fillWidth: true }
    Rectangle {
        objectName: "statusDot"
        visible: row.showDot
        implicitWidth: Theme.statusDotSize
        implicitHeight: Theme.statusDotSize
        radius: width / 2
        color: Theme.green
        Layout.rightMargin: Theme.spacingXS
    }
    Text {
        textFormat: Text.PlainText
        objectName: "statusValue"
        text: row.value
        font: Theme.subheadline
        color: row.valueColor
    }
}
