import QtQuick
import Kivora

// A small capsule with a short status text in a tint, such as "Coming Soon".
Rectangle {
    id: badge

    property string text: "Coming Soon"
    property color tint: Theme.orange

    implicitWidth: label.implicitWidth + 16
    implicitHeight: label.implicitHeight + 6
    radius: height / 2
    color: Qt.rgba(tint.r, tint.g, tint.b, 0.12)

    Text {
        id: label
        anchors.centerIn: parent
        text: badge.text
        font.family: Theme.caption.family
        font.pixelSize: Theme.caption.pixelSize
        font.weight: Font.Medium
        color: badge.tint
    }
}
