import QtQuick
import Kivora

// The active profile's avatar: a tinted circle with the icon of the chosen style —
// "dot" an accent dot, "full" the logo, "text" the letter K.
Rectangle {
    id: avatar

    property string iconStyle: "dot"

    implicitWidth: 40
    implicitHeight: 40
    radius: width / 2
    color: Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b, 0.15)

    Rectangle {
        objectName: "avatarDot"
        visible: avatar.iconStyle === "dot"
        anchors.centerIn: parent
        width: 20
        height: 20
        radius: 10
        color: Theme.accent
    }

    Image {
        objectName: "avatarLogo"
        visible: avatar.iconStyle === "full"
        anchors.centerIn: parent
        width: 28
        height: 28
        sourceSize.width: 56
        sourceSize.height: 56
        fillMode: Image.PreserveAspectFit
        source: visible ? "qrc:/qt/qml/Kivora/assets/kivora-dot-transparent.svg" : ""
    }

    Text {
        objectName: "avatarText"
        visible: avatar.iconStyle === "text"
        anchors.centerIn: parent
        text: "K"
        font.family: Theme.systemFont.family
        font.pixelSize: 16
        font.bold: true
        color: Theme.primaryText
    }
}
