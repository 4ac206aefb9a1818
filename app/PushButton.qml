import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A bordered push button in the palette; `prominent` makes it the accent-filled default.
Button {
    id: button
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: button.clicked()

    property bool prominent: false

    hoverEnabled: true
    font: Theme.body
    leftPadding: 14
    rightPadding: 14
    topPadding: 6
    bottomPadding: 6

    contentItem: Text {
        text: button.text
        font: button.font
        color: button.prominent ? Theme.accentText : Theme.primaryText
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        implicitWidth: 80
        implicitHeight: 30
        radius: 7
        color: button.prominent ? (button.pressed ? Qt.darker(Theme.accent, 1.15) : Theme.accent)
                                : (button.pressed ? Theme.controlBackground
                                                  : button.hovered ? Qt.lighter(Theme.cardBackground, 1.02)
                                                                   : Theme.cardBackground)
        border.width: button.prominent ? 0 : 1
        border.color: button.activeFocus ? Theme.accent : Theme.border
    }
}
