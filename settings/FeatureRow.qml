import QtQuick
import QtQuick.Layouts
import Kivora

// A feature: its symbol in the feature's tint, a title over a one-line description and,
// when the feature is announced only, a trailing "Coming Soon" badge.
RowLayout {
    id: row

    property string symbol
    property color tint: Theme.accent
    property string title
    property string description
    property bool comingSoon: false

    Layout.fillWidth: true
    spacing: 12

    Rectangle {
        implicitWidth: 32
        implicitHeight: 32
        radius: 8
        color: Qt.rgba(row.tint.r, row.tint.g, row.tint.b, 0.12)
        SymbolIcon {
            anchors.centerIn: parent
            name: row.symbol
            color: row.tint
            size: 18
        }
    }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 2
        Text {
            objectName: "featureTitle"
            Layout.fillWidth: true
            text: row.title
            font.family: Theme.body.family
            font.pixelSize: Theme.body.pixelSize
            font.weight: Font.Medium
            color: Theme.primaryText
            elide: Text.ElideRight
        }
        Text {
            objectName: "featureDescription"
            Layout.fillWidth: true
            text: row.description
            font: Theme.subheadline
            color: Theme.secondaryText
            elide: Text.ElideRight
        }
    }

    InfoBadge {
        objectName: "comingSoonBadge"
        visible: row.comingSoon
        text: "Coming Soon"
    }
}
