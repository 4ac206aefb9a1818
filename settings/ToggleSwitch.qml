import QtQuick
import QtQuick.Controls.Basic
import Kivora

// An on/off switch in the palette: accent track when on, a white knob sliding across.
Switch {
    id: control

    hoverEnabled: true
    padding: 0
    spacing: 0
    // The switch has no label: its size is the track's.
    implicitWidth: implicitIndicatorWidth + leftPadding + rightPadding
    implicitHeight: implicitIndicatorHeight + topPadding + bottomPadding

    indicator: Rectangle {
        implicitWidth: 38
        implicitHeight: 22
        x: control.leftPadding
        y: control.topPadding + (control.availableHeight - height) / 2
        radius: height / 2
        color: control.checked ? Theme.accent : Theme.controlBackground
        border.width: control.checked ? 0 : 1
        border.color: control.activeFocus ? Theme.accent : Theme.border
        opacity: control.enabled ? 1.0 : 0.5
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration } }

        Rectangle {
            width: 18
            height: 18
            radius: 9
            y: 2
            x: control.checked ? parent.width - width - 2 : 2
            color: "#ffffff"
            border.width: 1
            border.color: Qt.rgba(0, 0, 0, 0.12)
            Behavior on x { NumberAnimation { duration: Theme.hoverDuration } }
        }
    }

    contentItem: Item {}
}
