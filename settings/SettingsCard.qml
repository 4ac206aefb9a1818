import QtQuick
import QtQuick.Layouts
import Kivora

// A rounded panel holding a group of settings, full width, content at the leading edge.
Rectangle {
    id: card

    default property alias content: body.data

    Layout.fillWidth: true
    implicitHeight: body.implicitHeight + 32
    implicitWidth: body.implicitWidth + 32
    radius: 12
    color: Theme.cardBackground
    border.color: Theme.cardBorder
    border.width: 1

    ColumnLayout {
        id: body
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 16
        spacing: 12
    }
}
