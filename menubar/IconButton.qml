import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A small square symbol button with a tooltip, as a profile row shows on hover.
AbstractButton {
    id: button
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: button.clicked()
    Accessible.name: button.tooltip

    property string symbol
    property color foreground: Theme.secondaryText
    property string tooltip

    implicitWidth: 24
    implicitHeight: 24
    hoverEnabled: true

    ToolTip.text: tooltip
    ToolTip.visible: hovered && tooltip.length > 0
    ToolTip.delay: 500

    contentItem: Item {
        SymbolIcon {
            anchors.centerIn: parent
            name: button.symbol
            color: button.foreground
            size: 13
        }
    }

    background: Rectangle {
        radius: 5
        color: Theme.quaternaryText
        opacity: button.pressed ? 0.8 : 0.4
    }
}
