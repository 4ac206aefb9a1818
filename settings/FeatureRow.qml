// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A feature: its symbol in the feature's tint, a title over a one-line description and,
// when the feature is announced only, a trailing "Coming Soon" badge.
RowLayout {
    id: row

    property string symbol
    property color tint: Theme.accent
    property string title
    property string description
    property bool comingSoon: false

    Layout.fillWidth: true
    spacing: Theme.spacingL

    Rectangle {
        implicitWidth: Theme.featureIconSize
        implicitHeight: Theme.featureIconSize
        radius: Theme.cornerRadius
        color: Theme.faded(row.tint, 0.12)
        SymbolIcon {
            anchors.centerIn: parent
            name: row.symbol
            color: row.tint
            size: Theme.symbolXL
        }
    }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: Theme.spacingXXS
        Text {
            textFormat: Text.PlainText
            objectName: "featureTitle"
            Layout.fillWidth: true
            text: row.title
            font.family: Theme.body.family
            font.pixelSize: Theme.body.pixelSize
            font.weight: Font.Medium
            color: Theme.primaryText
            elide: Text.ElideRight
        }
        Text {
            textFormat: Text.PlainText
            objectName: "featureDescription"
            Layout.fillWidth: true
            text: row.description
            font: Theme.subheadline
            color: Theme.secondaryText
            elide: Text.ElideRight
        }
    }

    Badge {
        objectName: "comingSoonBadge"
        visible: row.comingSoon
        text: qsTr("Coming Soon")
    }
}
