import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A 28 × 28 symbol button on a rounded background, with a tooltip, for a row's actions.
AbstractButton {
    id: button
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: button.clicked()
    Accessible.name: button.tooltip

    property string symbol
    property color foreground: Theme.secondaryText
    property color fill: Theme.quaternaryText
    property string tooltip

    implicitWidth: 28
    implicitHeight: 28
    hoverEnabled: true

    ToolTip.text: tooltip
    ToolTip.visible: hovered && tooltip.length > 0
    ToolTip.delay: 500

    contentItem: Item {
        SymbolIcon {
            anchors.centerIn: parent
            name: button.symbol
            color: button.foreground
            size: Theme.subheadline.pixelSize + 1
        }
    }

    background: Rectangle {
        radius: 6
        color: button.fill
        opacity: button.pressed ? 1 : button.hovered ? 0.85 : 0.6
    }
}
