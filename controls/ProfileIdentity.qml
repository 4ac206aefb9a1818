// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A profile as both profile lists show it: the active mark, then the display name over its
// identity line ("git name · e-mail"), and below them whatever the row adds (`extra`).
RowLayout {
    id: identity

    property string profileName
    property string identityLine
    property bool active: false
    // The mark's look: the popover's is smaller and finer than the settings page's.
    property int markSize: Theme.markDotSize
    property int markOutline: 2
    property color markOutlineColor: Theme.secondaryText
    property font nameFont: Theme.rowTitle
    default property alias extra: column.data

    spacing: Theme.spacingML

    StatusDot {
        objectName: "statusDot"
        on: identity.active
        size: identity.markSize
        outlineWidth: identity.markOutline
        outline: identity.markOutlineColor
    }

    ColumnLayout {
        id: column
        Layout.fillWidth: true
        spacing: Theme.spacingXXS
        Text {
            textFormat: Text.PlainText
            objectName: "nameText"
            Layout.fillWidth: true
            text: identity.profileName
            font: identity.nameFont
            color: Theme.primaryText
            elide: Text.ElideRight
        }
        Text {
            textFormat: Text.PlainText
            objectName: "identityText"
            Layout.fillWidth: true
            text: identity.identityLine
            font: Theme.subheadline
            color: Theme.secondaryText
            elide: Text.ElideRight
        }
    }
}
