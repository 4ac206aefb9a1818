import QtQuick
import QtQuick.Layouts
import Kivora

// A segmented picker: one segment per choice, side by side, the selected one raised.
// `choices` are maps with "rawValue" and "displayName"; `value` is the selected raw value
// (no segment is selected when it matches none). `activated` reports the user's choice.
Rectangle {
    id: picker

    property var choices: []
    property string value

    signal activated(string rawValue)

    // Every segment is as wide as the widest label needs, and they share the width equally.
    readonly property real widestLabel: {
        let widest = 0
        for (let i = 0; i < repeater.count; ++i) {
            const item = repeater.itemAt(i)
            if (item)
                widest = Math.max(widest, item.labelWidth)
        }
        return widest
    }

    implicitWidth: choices.length * (widestLabel + 28) + (choices.length - 1) * 2 + 4
    implicitHeight: 30
    radius: 7
    color: Theme.controlBackground
    border.width: 1
    border.color: Theme.border

    RowLayout {
        id: segments
        anchors.fill: parent
        anchors.margins: 2
        spacing: 2

        Repeater {
            id: repeater
            model: picker.choices
            delegate: Rectangle {
                id: segment

                required property var modelData
                readonly property bool selected: modelData.rawValue === picker.value
                readonly property real labelWidth: label.implicitWidth

                objectName: "segment:" + modelData.displayName
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: (segments.width - segments.spacing * (repeater.count - 1))
                                       / Math.max(1, repeater.count)
                radius: 5
                color: selected ? Theme.cardBackground
                                : hover.hovered ? Qt.rgba(Theme.cardBackground.r,
                                                          Theme.cardBackground.g,
                                                          Theme.cardBackground.b, 0.45)
                                                : "transparent"
                border.width: selected ? 1 : 0
                border.color: Theme.cardBorder

                HoverHandler { id: hover }
                TapHandler { onTapped: picker.activated(segment.modelData.rawValue) }

                Text {
                    id: label
                    anchors.centerIn: parent
                    text: segment.modelData.displayName
                    font.family: Theme.body.family
                    font.pixelSize: Theme.body.pixelSize
                    font.weight: segment.selected ? Font.DemiBold : Font.Normal
                    color: segment.selected ? Theme.primaryText : Theme.secondaryText
                }
            }
        }
    }
}
