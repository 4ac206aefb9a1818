import QtQuick
import QtQuick.Layouts
import Kivora

// One profile in the popover: status dot, name and identity, a brief "Switched" mark after a
// switch and, under the pointer, the terminal, edit and delete buttons. A click switches.
Item {
    id: row

    property string profileName
    property string identity
    property bool active: false
    property bool justSwitched: false
    readonly property bool isHovered: hover.hovered

    // The row's actions, wired by the popover.
    signal switchRequested()
    signal openTerminalRequested()
    signal editRequested()
    signal deleteRequested()

    implicitHeight: layout.implicitHeight + 16

    // A button to assistive technology: named after the profile, pressed to switch.
    Accessible.role: Accessible.Button
    Accessible.name: row.profileName
    Accessible.description: row.identity
    Accessible.onPressAction: row.switchRequested()

    Rectangle {
        anchors.fill: parent
        radius: 6
        color: row.isHovered ? Theme.controlBackground : "transparent"
        Behavior on color { ColorAnimation { duration: Theme.hoverDuration; easing.type: Easing.InOutQuad } }
    }

    HoverHandler { id: hover }
    TapHandler { onTapped: row.switchRequested() }

    RowLayout {
        id: layout
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        anchors.topMargin: 8
        anchors.bottomMargin: 8
        spacing: 10

        Rectangle {
            objectName: "statusDot"
            implicitWidth: 7
            implicitHeight: 7
            radius: 3.5
            color: row.active ? Theme.green : "transparent"
            border.width: 1
            border.color: row.active ? Theme.green
                                     : Qt.rgba(Theme.secondaryText.r, Theme.secondaryText.g,
                                               Theme.secondaryText.b, 0.4)
            Behavior on color { ColorAnimation { duration: Theme.statusDuration; easing.type: Easing.InOutQuad } }
            Behavior on border.color { ColorAnimation { duration: Theme.statusDuration; easing.type: Easing.InOutQuad } }
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2
            Text {
                objectName: "nameText"
                Layout.fillWidth: true
                text: row.profileName
                font: Theme.rowTitle
                color: Theme.primaryText
                elide: Text.ElideRight
            }
            Text {
                objectName: "identityText"
                Layout.fillWidth: true
                text: row.identity
                font: Theme.subheadline
                color: Theme.secondaryText
                elide: Text.ElideRight
            }
        }

        Row {
            objectName: "switchedLabel"
            spacing: 3
            opacity: row.justSwitched ? 1 : 0
            visible: opacity > 0
            Behavior on opacity { NumberAnimation { duration: Theme.switchedDuration; easing.type: Easing.OutCubic } }
            SymbolIcon {
                name: "checkmark"
                color: Theme.green
                size: 11
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                text: "Switched"
                font: Theme.caption
                color: Theme.green
                anchors.verticalCenter: parent.verticalCenter
            }
        }

        Row {
            objectName: "hoverActions"
            spacing: 4
            opacity: row.isHovered ? 1 : 0
            visible: opacity > 0
            Behavior on opacity { NumberAnimation { duration: Theme.hoverDuration; easing.type: Easing.InOutQuad } }

            IconButton {
                objectName: "terminalButton"
                symbol: "terminal"
                tooltip: "Open Terminal"
                onClicked: row.openTerminalRequested()
            }
            IconButton {
                objectName: "editButton"
                symbol: "pencil"
                tooltip: "Edit"
                onClicked: row.editRequested()
            }
            IconButton {
                objectName: "deleteButton"
                symbol: "trash"
                tooltip: "Delete"
                foreground: Theme.red
                onClicked: row.deleteRequested()
            }
        }
    }
}
