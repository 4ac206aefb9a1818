import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A borderless text button with an optional leading symbol, as the popover's footer uses.
AbstractButton {
    id: button
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: button.clicked()

    property string symbol
    property color foreground: Theme.secondaryText
    property font textFont: Theme.subheadline

    hoverEnabled: true
    padding: 4
    leftPadding: 6
    rightPadding: 6

    contentItem: Row {
        spacing: 5
        SymbolIcon {
            visible: button.symbol.length > 0
            name: button.symbol
            color: button.foreground
            size: 13
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            text: button.text
            font: button.textFont
            color: button.foreground
            anchors.verticalCenter: parent.verticalCenter
        }
    }

    background: Rectangle {
        radius: Theme.smallRadius
        color: button.pressed ? Theme.controlBackground
                              : button.hovered ? Qt.rgba(Theme.controlBackground.r,
                                                         Theme.controlBackground.g,
                                                         Theme.controlBackground.b, 0.7)
                                               : "transparent"
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration } }
    }
}
