import QtQuick
import Kivora

// One identity line of the active-profile card: a symbol and a text.
Row {
    id: line

    property string symbol
    property string text

    spacing: 4

    SymbolIcon {
        name: line.symbol
        color: Theme.secondaryText
        size: 11
        anchors.verticalCenter: parent.verticalCenter
    }
    Text {
        width: Math.max(0, line.width - 15)
        text: line.text
        font: Theme.subheadline
        color: Theme.secondaryText
        elide: Text.ElideMiddle
        anchors.verticalCenter: parent.verticalCenter
    }
}
