import QtQuick
import QtQuick.Layouts
import Kivora

// A switch row: a title over a secondary description, the switch at the trailing edge.
// `toggled` reports the user's change; the owner writes it to the setting it shows.
RowLayout {
    id: row

    property string title
    property string description
    property bool checked: false

    signal toggled(bool checked)

    Layout.fillWidth: true
    spacing: 12

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 2
        Text {
            objectName: "toggleTitle"
            Layout.fillWidth: true
            text: row.title
            font: Theme.body
            color: Theme.primaryText
            elide: Text.ElideRight
        }
        Text {
            objectName: "toggleDescription"
            Layout.fillWidth: true
            visible: row.description.length > 0
            text: row.description
            font: Theme.subheadline
            color: Theme.secondaryText
            elide: Text.ElideRight
        }
    }

    ToggleSwitch {
        objectName: "toggle"
        Layout.alignment: Qt.AlignVCenter
        checked: row.checked
        onToggled: {
            row.toggled(checked)
            // The switch shows the setting, not its own click: bind it back, so a change
            // the setting refused springs back.
            checked = Qt.binding(() => row.checked)
        }
    }
}
