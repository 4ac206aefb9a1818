import QtQuick
import QtQuick.Layouts
import Kivora

// A quick action in the settings sidebar: an icon and a title; a destructive one is red.
Rectangle {
    id: row

    property string title
    property string icon
    property bool destructive: false

    signal clicked()

    implicitHeight: 32
    radius: 6

    Accessible.role: Accessible.Button
    Accessible.name: row.title
    Accessible.onPressAction: row.clicked()
    color: hover.hovered ? Qt.rgba(Theme.controlBackground.r, Theme.controlBackground.g,
                                   Theme.controlBackground.b, 0.8)
                         : "transparent"

    HoverHandler { id: hover }
    TapHandler { onTapped: row.clicked() }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        spacing: 10

        SymbolIcon {
            name: row.icon
            color: row.destructive ? Theme.red : Theme.secondaryText
            size: 16
        }
        Text {
            Layout.fillWidth: true
            text: row.title
            font: Theme.body
            color: row.destructive ? Theme.red : Theme.primaryText
        }
    }
}
