import QtQuick
import QtQuick.Controls.Basic
import Kivora

// A text field with a rounded border; `secure` masks what is typed.
TextField {
    id: field

    property bool secure: false

    echoMode: secure ? TextInput.Password : TextInput.Normal
    leftPadding: 9
    rightPadding: 9
    topPadding: 6
    bottomPadding: 6
    font: Theme.body
    color: Theme.primaryText
    placeholderTextColor: Theme.tertiaryText
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    selectByMouse: true

    background: Rectangle {
        implicitWidth: 200
        implicitHeight: 30
        radius: 7
        color: Theme.fieldBackground
        border.width: field.activeFocus ? 2 : 1
        border.color: field.activeFocus ? Theme.accent : Theme.border
    }
}
