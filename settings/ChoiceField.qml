// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// A labelled choice of the Appearance page: the label, a segmented picker over `choices`
// (maps with "rawValue", "displayName" and "description") and, under it, what the chosen
// one does. `activated` reports the user's choice.
ColumnLayout {
    id: field

    property string label
    property var choices: []
    property string value
    // The names the page's picker and description go by.
    property string pickerName
    property string descriptionName

    signal activated(string rawValue)

    Layout.fillWidth: true
    spacing: Theme.spacingS

    Text {
        textFormat: Text.PlainText
        text: field.label
        font.family: Theme.body.family
        font.pixelSize: Theme.body.pixelSize
        font.weight: Font.Medium
        color: Theme.primaryText
    }
    SegmentedPicker {
        objectName: field.pickerName
        Layout.fillWidth: true
        label: field.label
        choices: field.choices
        value: field.value
        onActivated: rawValue => field.activated(rawValue)
    }
    Text {
        textFormat: Text.PlainText
        objectName: field.descriptionName
        Layout.fillWidth: true
        text: {
            for (const choice of field.choices) {
                if (choice.rawValue === field.value)
                    return choice.description
            }
            return ""
        }
        font: Theme.subheadline
        color: Theme.secondaryText
        wrapMode: Text.WordWrap
    }
}
