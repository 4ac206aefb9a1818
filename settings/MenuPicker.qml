import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A pop-up picker in the palette. `choices` are maps with "text" and "value"; `value` is
// the selected one, compared exactly, and no entry is selected when it matches none.
// `picked` reports the user's choice.
ComboBox {
    id: picker

    property var choices: []
    property var value

    signal picked(var value)

    function indexOfValue(wanted: var): int {
        for (let i = 0; i < choices.length; ++i) {
            if (choices[i].value === wanted)
                return i
        }
        return -1
    }

    model: choices
    textRole: "text"
    currentIndex: indexOfValue(value)
    font: Theme.body
    hoverEnabled: true
    implicitHeight: 30

    onActivated: index => {
        picked(choices[index].value)
        currentIndex = Qt.binding(() => indexOfValue(value))
    }

    contentItem: Text {
        leftPadding: 10
        rightPadding: picker.indicator.width + 4
        text: picker.displayText
        font: picker.font
        color: Theme.primaryText
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    indicator: SymbolIcon {
        x: picker.width - width - 8
        y: (picker.height - height) / 2
        name: "chevron.down"
        color: Theme.secondaryText
        size: 12
    }

    background: Rectangle {
        radius: 7
        color: picker.pressed ? Theme.controlBackground : Theme.fieldBackground
        border.width: 1
        border.color: picker.activeFocus ? Theme.accent : Theme.border
    }

    delegate: ItemDelegate {
        id: entry

        required property var modelData
        required property int index

        width: picker.width
        highlighted: picker.highlightedIndex === index
        contentItem: Text {
            text: entry.modelData.text
            font: picker.font
            color: entry.highlighted ? Theme.accentText : Theme.primaryText
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle {
            radius: 5
            color: entry.highlighted ? Theme.accent : "transparent"
        }
    }

    popup: Popup {
        y: picker.height + 2
        width: picker.width
        implicitHeight: contentItem.implicitHeight + 8
        padding: 4

        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            model: picker.popup.visible ? picker.delegateModel : null
            currentIndex: picker.highlightedIndex
        }

        background: Rectangle {
            radius: 8
            color: Theme.cardBackground
            border.width: 1
            border.color: Theme.border
        }
    }
}
