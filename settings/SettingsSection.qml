// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A titled group on a settings page: the title (and description, when given) above the
// content. Without a title there is no header.
ColumnLayout {
    id: section

    property string title
    property string description
    default property alias content: body.data

    Layout.fillWidth: true
    spacing: Theme.spacingM

    ColumnLayout {
        objectName: "sectionHeader"
        visible: section.title.length > 0
        Layout.fillWidth: true
        spacing: Theme.spacingXS
        Text {
            textFormat: Text.PlainText
            text: section.title
            font: Theme.headline
            color: Theme.secondaryText
        }
        Text {
            textFormat: Text.PlainText
            objectName: "sectionDescription"
            visible: section.description.length > 0
            Layout.fillWidth: true
            text: section.description
            font: Theme.subheadline
            color: Theme.tertiaryText
            wrapMode: Text.WordWrap
        }
    }

    ColumnLayout {
        id: body
        Layout.fillWidth: true
        spacing: Theme.spacingM
    }
}
