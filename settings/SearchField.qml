import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A text field with a magnifying glass, for searching the settings.
TextField {
    id: field

    leftPadding: 30
    rightPadding: 8
    topPadding: 7
    bottomPadding: 7
    font: Theme.body
    color: Theme.primaryText
    placeholderTextColor: Theme.tertiaryText
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText

    background: Rectangle {
        radius: 7
        color: Theme.fieldBackground
        border.width: field.activeFocus ? 2 : 1
        border.color: field.activeFocus ? Theme.accent : Theme.border

        SymbolIcon {
            anchors.left: parent.left
            anchors.leftMargin: 9
            anchors.verticalCenter: parent.verticalCenter
            name: "magnifyingglass"
            color: Theme.tertiaryText
            size: 14
        }
    }
}
