// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Kivora

// A segmented picker: one segment per choice, side by side, the selected one raised.
// `choices` are maps with "rawValue" and "displayName"; `value` is the selected raw value
// (no segment is selected when it matches none). `activated` reports the user's choice. Each
// segment is a button, so the keyboard reaches it.
Rectangle {
    id: picker

    property var choices: []
    property string value

    signal activated(string rawValue)

    // Every segment is as wide as the widest label needs, and they share the width equally.
    readonly property real widestLabel: {
        let widest = 0
        for (let i = 0; i < repeater.count; ++i) {
            const item = repeater.itemAt(i) as SegmentButton
            if (item)
                widest = Math.max(widest, item.labelWidth)
        }
        return widest
    }
    readonly property int gap: Theme.spacingXXS

    component SegmentButton: AbstractButton {
        id: segment

        required property var modelData
        readonly property bool selected: modelData.rawValue === picker.value
        readonly property real labelWidth: contentItem.implicitWidth

        objectName: "segment:" + modelData.displayName
        text: modelData.displayName
        hoverEnabled: true
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredWidth: (segments.width - segments.spacing * (repeater.count - 1))
                               / Math.max(1, repeater.count)
        onClicked: picker.activated(modelData.rawValue)

        background: Rectangle {
            radius: Theme.smallRadius
            color: segment.selected ? Theme.cardBackground
                                    : segment.hovered ? Theme.faded(Theme.cardBackground, 0.45)
                                                      : "transparent"
            border.width: segment.selected || segment.visualFocus ? 1 : 0
            border.color: segment.visualFocus ? Theme.accent : Theme.cardBorder
        }

        contentItem: Text {
            text: segment.text
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            font.family: Theme.body.family
            font.pixelSize: Theme.body.pixelSize
            font.weight: segment.selected ? Font.DemiBold : Font.Normal
            color: segment.selected ? Theme.primaryText : Theme.secondaryText
        }
    }

    implicitWidth: choices.length * (widestLabel + Theme.spacingSheet)
                   + (choices.length + 1) * gap
    implicitHeight: Theme.controlHeight
    radius: Theme.controlRadius
    color: Theme.controlBackground
    border.width: 1
    border.color: Theme.border

    RowLayout {
        id: segments
        anchors.fill: parent
        anchors.margins: picker.gap
        spacing: picker.gap

        Repeater {
            id: repeater
            model: picker.choices
            delegate: SegmentButton {}
        }
    }
}
