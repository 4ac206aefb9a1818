import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A feature status badge: the status's symbol and text in its colour, with its tooltip.
Rectangle {
    id: badge

    property int progress: SettingsProgress.Configured
    readonly property color tint: Theme.named(SettingsProgress.colorName(progress))

    implicitWidth: row.implicitWidth + 20
    implicitHeight: row.implicitHeight + 8
    radius: height / 2
    color: Qt.rgba(tint.r, tint.g, tint.b, 0.1)

    HoverHandler { id: hover }
    ToolTip.text: SettingsProgress.tooltip(progress)
    ToolTip.visible: hover.hovered
    ToolTip.delay: 500

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 4
        SymbolIcon {
            name: SettingsProgress.symbol(badge.progress)
            color: badge.tint
            size: 11
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            text: SettingsProgress.text(badge.progress)
            font.family: Theme.caption.family
            font.pixelSize: Theme.caption.pixelSize
            font.weight: Font.Medium
            color: badge.tint
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
