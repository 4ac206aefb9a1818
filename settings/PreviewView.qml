import QtQuick
import QtQuick.Layouts
import Kivora

// A miniature of the tray item's menu as the current preferences draw it: the icon in the
// chosen style beside a sample active profile, a second sample profile and the footer
// buttons. It follows every change of the preferences at once; its buttons do nothing.
Rectangle {
    id: preview

    readonly property string iconStyle: SettingsManager.menuBarIconStyle
    readonly property bool showEmail: SettingsManager.showProfileEmail
    readonly property bool compact: SettingsManager.compactMode
    readonly property int padding: compact ? 8 : 14

    // Obviously made-up sample identity.
    readonly property string sampleName: "Alex Sample"
    readonly property string sampleWorkEmail: "alex@work.example"
    readonly property string samplePersonalEmail: "alex@personal.example"

    implicitWidth: 320
    implicitHeight: column.implicitHeight + 2 * padding
    radius: 10
    color: Theme.popoverBackground
    border.width: 1
    border.color: Theme.border

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: preview.padding
        spacing: preview.compact ? 6 : 10

        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            Item {
                objectName: "previewIcon"
                implicitWidth: 28
                implicitHeight: 28

                Rectangle {
                    objectName: "previewDot"
                    visible: preview.iconStyle === "dot"
                    anchors.centerIn: parent
                    width: 20
                    height: 20
                    radius: 10
                    color: Theme.accent
                }

                Image {
                    objectName: "previewLogo"
                    visible: preview.iconStyle === "full"
                    anchors.centerIn: parent
                    width: 24
                    height: 24
                    sourceSize.width: 48
                    sourceSize.height: 48
                    fillMode: Image.Stretch
                    source: "qrc:/qt/qml/Kivora/assets/kivora-dot-transparent.svg"
                }

                Text {
                    objectName: "previewLetter"
                    visible: preview.iconStyle === "text"
                    anchors.centerIn: parent
                    text: "K"
                    font.family: Theme.systemFont.family
                    font.pixelSize: 16
                    font.bold: true
                    color: Theme.primaryText
                }
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 2
                Text {
                    objectName: "previewProfileName"
                    text: "Work"
                    font: Theme.headline
                    color: Theme.primaryText
                }
                Text {
                    objectName: "previewEmailLine"
                    Layout.fillWidth: true
                    visible: preview.showEmail
                    text: preview.sampleName + " · " + preview.sampleWorkEmail
                    font: Theme.subheadline
                    color: Theme.secondaryText
                    elide: Text.ElideRight
                }
            }
        }

        Divider { Layout.fillWidth: true }

        Text {
            objectName: "previewSecondProfile"
            Layout.fillWidth: true
            text: preview.sampleName + " · " + preview.samplePersonalEmail
            font: Theme.subheadline
            color: Theme.secondaryText
            elide: Text.ElideRight
        }

        Divider { Layout.fillWidth: true }

        RowLayout {
            Layout.fillWidth: true
            spacing: 4

            // Shown only: pressing them does nothing.
            PlainButton {
                objectName: "previewAdd"
                text: "Add"
            }
            Item { Layout.fillWidth: true }
            PlainButton {
                objectName: "previewSettings"
                text: "Settings"
            }
            PlainButton {
                objectName: "previewQuit"
                text: "Quit"
            }
        }
    }
}
