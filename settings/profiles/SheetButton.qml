import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A bordered push button with an optional leading symbol and spinner. `prominent` fills it
// with the accent colour (the default action); `destructive` draws its label in red.
Button {
    id: button
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: button.clicked()

    property string symbol
    property bool prominent: false
    property bool destructive: false
    // Shows a spinner before the label.
    property bool busy: false

    readonly property color foreground: prominent ? Theme.accentText
                                                  : destructive ? Theme.red : Theme.primaryText

    hoverEnabled: true
    font: Theme.body
    leftPadding: 14
    rightPadding: 14
    topPadding: 6
    bottomPadding: 6
    opacity: enabled ? 1 : 0.45

    contentItem: Item {
        implicitWidth: children[0].implicitWidth
        implicitHeight: children[0].implicitHeight

        Row {
            anchors.centerIn: parent
            spacing: 6

            SheetSpinner {
                objectName: "spinner"
                visible: button.busy
                color: button.foreground
                size: 13
                anchors.verticalCenter: parent.verticalCenter
            }
            SymbolIcon {
                visible: button.symbol.length > 0
                name: button.symbol
                color: button.foreground
                size: 14
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                text: button.text
                font: button.font
                color: button.foreground
                anchors.verticalCenter: parent.verticalCenter
            }
        }
    }

    background: Rectangle {
        implicitWidth: 80
        implicitHeight: 30
        radius: 7
        color: button.prominent
               ? (button.pressed ? Qt.darker(Theme.accent, 1.15) : Theme.accent)
               : (button.pressed ? Theme.controlBackground
                                 : button.hovered && button.enabled
                                   ? Qt.rgba(Theme.controlBackground.r, Theme.controlBackground.g,
                                             Theme.controlBackground.b, 0.6)
                                   : Theme.cardBackground)
        border.width: button.prominent && !button.visualFocus ? 0 : 1
        border.color: button.visualFocus ? Theme.accent : Theme.border
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration } }
    }
}
