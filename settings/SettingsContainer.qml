import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Kivora

// The frame of every settings page: a header with the page's symbol, title, subtitle and,
// when set, its feature status badge; a divider; then the page's content, scrolling.
Rectangle {
    id: container

    property string title
    property string subtitle
    property string icon
    // A SettingsProgress value, or -1 for no badge.
    property int progress: -1
    default property alias content: body.data

    color: Theme.windowBackground

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        RowLayout {
            id: header
            objectName: "pageHeader"
            Layout.fillWidth: true
            Layout.margins: 24
            spacing: 14

            Rectangle {
                implicitWidth: 40
                implicitHeight: 40
                radius: 10
                color: Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b, 0.1)
                SymbolIcon {
                    anchors.centerIn: parent
                    name: container.icon
                    color: Theme.accent
                    size: 22
                }
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 2
                Text {
                    objectName: "pageTitle"
                    text: container.title
                    font: Theme.title
                    color: Theme.primaryText
                }
                Text {
                    objectName: "pageSubtitle"
                    Layout.fillWidth: true
                    text: container.subtitle
                    font: Theme.body
                    color: Theme.secondaryText
                    elide: Text.ElideRight
                }
            }

            SettingsProgressBadge {
                objectName: "progressBadge"
                visible: container.progress >= 0
                progress: container.progress
            }
        }

        Divider { Layout.fillWidth: true }

        ScrollView {
            id: scroll
            Layout.fillWidth: true
            Layout.fillHeight: true
            contentWidth: availableWidth
            clip: true

            ColumnLayout {
                id: body
                x: 24
                y: 20
                width: scroll.availableWidth - 48
                spacing: 24
            }
        }
    }
}
