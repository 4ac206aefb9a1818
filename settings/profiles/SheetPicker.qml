import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A pop-up picker over a list of texts. `current` is the text shown (it may be one the list
// does not hold); `symbols`, when set, maps entries to their leading symbols. Choosing an
// entry emits `picked` with its text.
ComboBox {
    id: picker

    property string current
    property var symbols: ({})

    signal picked(string value)

    function symbolOf(value: string): string {
        return picker.symbols[value] ?? ""
    }

    hoverEnabled: true
    font: Theme.body
    leftPadding: 9
    rightPadding: 30
    displayText: current
    currentIndex: Array.isArray(model) ? model.indexOf(current) : -1

    onActivated: index => picker.picked(picker.model[index])

    contentItem: Row {
        spacing: 7
        SymbolIcon {
            visible: name.length > 0
            name: picker.symbolOf(picker.current)
            color: Theme.secondaryText
            size: 15
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            text: picker.displayText
            font: picker.font
            color: Theme.primaryText
            anchors.verticalCenter: parent.verticalCenter
        }
    }

    indicator: SymbolIcon {
        x: picker.width - width - 10
        y: (picker.height - height) / 2
        name: "chevron.down"
        color: Theme.secondaryText
        size: 12
    }

    background: Rectangle {
        implicitWidth: 200
        implicitHeight: 30
        radius: 7
        color: picker.pressed ? Theme.controlBackground : Theme.fieldBackground
        border.width: picker.visualFocus ? 2 : 1
        border.color: picker.visualFocus ? Theme.accent : Theme.border
    }

    delegate: ItemDelegate {
        id: entry

        required property string modelData
        required property int index

        width: ListView.view ? ListView.view.width : implicitWidth
        hoverEnabled: true
        leftPadding: 9
        highlighted: picker.highlightedIndex === index

        contentItem: Row {
            spacing: 7
            SymbolIcon {
                visible: name.length > 0
                name: picker.symbolOf(entry.modelData)
                color: entry.highlighted ? Theme.accentText : Theme.secondaryText
                size: 15
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                text: entry.modelData
                font: Theme.body
                color: entry.highlighted ? Theme.accentText : Theme.primaryText
                anchors.verticalCenter: parent.verticalCenter
            }
            SymbolIcon {
                visible: entry.modelData === picker.current
                name: "checkmark"
                color: entry.highlighted ? Theme.accentText : Theme.accent
                size: 12
                anchors.verticalCenter: parent.verticalCenter
            }
        }

        background: Rectangle {
            radius: Theme.smallRadius
            color: entry.highlighted ? Theme.accent : "transparent"
        }
    }

    popup: Popup {
        y: picker.height + 4
        width: picker.width
        padding: 4
        implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding

        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            model: picker.popup.visible ? picker.delegateModel : null
            currentIndex: picker.highlightedIndex
        }

        background: Rectangle {
            radius: Theme.cornerRadius
            color: Theme.popoverBackground
            border.width: 1
            border.color: Theme.border
        }
    }
}
