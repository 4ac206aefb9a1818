// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import QtQuick.Layouts
import Kivora

// A segmented picker: one segment per choice, side by side, the selected one raised.
// `choices` are maps with "rawValue" and "displayName"; `value` is the selected raw value
// (no segment is selected when it matches none). `activated` reports the user's choice.
// The keyboard treats it as a group of radio buttons: one stop of the Tab chain (the selected
// segment), the arrow keys choose the previous or next one, Home and End the first and last.
Rectangle {
    id: picker

    property var choices: []
    property string value
    // What the choice is about ("Icon Style"), for screen readers.
    property string label

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
    readonly property int selectedIndex: {
        for (let i = 0; i < choices.length; ++i) {
            if (choices[i].rawValue === value)
                return i
        }
        return -1
    }

    // Chooses the segment at `index` from the keyboard and keeps the focus on it.
    function chooseByKey(index: int) {
        if (index < 0 || index >= choices.length)
            return
        // The focus moves first: the segment left may stop being a Tab stop only without it.
        const segment = repeater.itemAt(index)
        if (segment)
            segment.forceActiveFocus(Qt.TabFocusReason)
        picker.activated(choices[index].rawValue)
    }

    Accessible.role: Accessible.Grouping
    Accessible.name: label

    // A radio button to assistive technology (the role of a plain button could not be
    // changed); it is never checked by a click itself, the picker's value decides.
    component SegmentButton: T.RadioButton {
        id: segment

        required property var modelData
        required property int index
        readonly property bool selected: modelData.rawValue === picker.value
        readonly property real labelWidth: contentItem.implicitWidth

        objectName: "segment:" + modelData.displayName
        text: modelData.displayName
        hoverEnabled: true
        checkable: false
        checked: selected
        autoExclusive: false
        // The Tab chain stops at the selected segment only (the first when none is).
        focusPolicy: index === Math.max(0, picker.selectedIndex) ? Qt.StrongFocus : Qt.ClickFocus
        Accessible.name: text
        Accessible.onPressAction: picker.activated(modelData.rawValue)
        Keys.onLeftPressed: picker.chooseByKey(index - 1)
        Keys.onUpPressed: picker.chooseByKey(index - 1)
        Keys.onRightPressed: picker.chooseByKey(index + 1)
        Keys.onDownPressed: picker.chooseByKey(index + 1)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Home) {
                picker.chooseByKey(0)
                event.accepted = true
            } else if (event.key === Qt.Key_End) {
                picker.chooseByKey(picker.choices.length - 1)
                event.accepted = true
            }
        }
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
            border.width: segment.selected ? 1 : 0
            border.color: Theme.controlBorder

            FocusRing {
                shown: segment.visualFocus
                inset: true
                itemRadius: Theme.smallRadius
            }
        }

        contentItem: Text {
            textFormat: Text.PlainText
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
    border.color: Theme.controlBorder

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
