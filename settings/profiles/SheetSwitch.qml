import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A labelled on/off switch: the label at the leading edge, the switch at the trailing edge.
Switch {
    id: control

    hoverEnabled: true
    font: Theme.body
    padding: 0
    spacing: 12

    indicator: Rectangle {
        implicitWidth: 38
        implicitHeight: 22
        x: control.width - width - control.rightPadding
        y: control.topPadding + (control.availableHeight - height) / 2
        radius: height / 2
        color: control.checked ? Theme.accent : Theme.controlBackground
        border.width: control.checked ? 0 : 1
        border.color: control.visualFocus ? Theme.accent : Theme.border
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration } }

        Rectangle {
            width: 18
            height: 18
            radius: 9
            y: 2
            x: control.checked ? parent.width - width - 2 : 2
            color: "white"
            border.width: 1
            border.color: Qt.rgba(0, 0, 0, 0.08)
            Behavior on x { NumberAnimation { duration: Theme.hoverDuration; easing.type: Easing.InOutQuad } }
        }
    }

    contentItem: Text {
        rightPadding: control.indicator.width + control.spacing
        text: control.text
        font: control.font
        color: Theme.primaryText
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
}
