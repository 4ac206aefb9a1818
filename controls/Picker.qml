// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A pop-up picker in the palette. `choices` are texts, or maps with "text" and "value";
// `value` is the chosen one (a text, or a map's value), compared exactly. When it is none of
// the choices no entry is selected and the picker shows `fallbackText`. `symbols`, when set,
// maps an entry's text to its leading symbol. `picked` reports the user's choice. A screen
// reader hears the `label` and the chosen entry.
ComboBox {
    id: picker

    property var choices: []
    property var value
    property string fallbackText
    property var symbols: ({})
    property string label

    signal picked(var value)

    function textAt(i: int): string {
        const choice = choices[i]
        return typeof choice === "object" ? choice.text : String(choice)
    }

    function valueAt(i: int): var {
        const choice = choices[i]
        return typeof choice === "object" ? choice.value : choice
    }

    function indexOfValue(wanted: var): int {
        for (let i = 0; i < choices.length; ++i) {
            if (valueAt(i) === wanted)
                return i
        }
        return -1
    }

    function symbolFor(text: string): string {
        return picker.symbols[text] ?? ""
    }

    model: choices
    textRole: choices.length > 0 && typeof choices[0] === "object" ? "text" : ""
    currentIndex: indexOfValue(value)
    displayText: currentIndex >= 0 ? textAt(currentIndex) : fallbackText
    font: Theme.body
    hoverEnabled: true
    Accessible.name: label
    Accessible.description: displayText
    Accessible.onPressAction: picker.popup.open()
    implicitHeight: Theme.controlHeight
    leftPadding: Theme.spacingML
    rightPadding: Theme.spacingSheet

    onActivated: index => {
        picker.picked(picker.valueAt(index))
        currentIndex = Qt.binding(() => picker.indexOfValue(picker.value))
    }

    contentItem: Row {
        spacing: Theme.spacingS
        SymbolIcon {
            visible: name.length > 0
            name: picker.symbolFor(picker.displayText)
            color: Theme.secondaryText
            size: Theme.symbolL
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            textFormat: Text.PlainText
            width: Math.min(implicitWidth, picker.availableWidth)
            text: picker.displayText
            font: picker.font
            color: Theme.primaryText
            elide: Text.ElideRight
            anchors.verticalCenter: parent.verticalCenter
        }
    }

    indicator: SymbolIcon {
        x: picker.width - width - Theme.spacingML
        y: (picker.height - height) / 2
        name: "chevron.down"
        color: Theme.secondaryText
        size: Theme.symbolS
    }

    background: Rectangle {
        implicitWidth: Theme.controlWidth
        radius: Theme.controlRadius
        color: picker.pressed ? Theme.controlBackground : Theme.fieldBackground
        border.width: 1
        border.color: Theme.controlBorder

        FocusRing {
            shown: picker.visualFocus
            itemRadius: Theme.controlRadius
        }
    }

    delegate: ItemDelegate {
        id: entry

        required property int index

        width: ListView.view ? ListView.view.width : implicitWidth
        hoverEnabled: true
        leftPadding: Theme.spacingML
        highlighted: picker.highlightedIndex === index

        contentItem: Row {
            spacing: Theme.spacingS
            SymbolIcon {
                visible: name.length > 0
                name: picker.symbolFor(picker.textAt(entry.index))
                color: entry.highlighted ? Theme.accentText : Theme.secondaryText
                size: Theme.symbolL
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                textFormat: Text.PlainText
                text: picker.textAt(entry.index)
                font: picker.font
                color: entry.highlighted ? Theme.accentText : Theme.primaryText
                anchors.verticalCenter: parent.verticalCenter
            }
            SymbolIcon {
                visible: entry.index === picker.currentIndex
                name: "checkmark"
                color: entry.highlighted ? Theme.accentText : Theme.accent
                size: Theme.symbolS
                anchors.verticalCenter: parent.verticalCenter
            }
        }

        background: Rectangle {
            radius: Theme.smallRadius
            color: entry.highlighted ? Theme.accentFill : "transparent"
        }
    }

    popup: Popup {
        y: picker.height + Theme.spacingXS
        width: picker.width
        padding: Theme.spacingXS
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
