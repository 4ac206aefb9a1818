import QtQuick

// A symbol of the description ("person.fill", "key.fill", …) drawn in a palette colour.
Image {
    id: icon

    property string name
    property color color: "black"
    property int size: 16

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    fillMode: Image.PreserveAspectFit
    asynchronous: false
    source: name.length > 0 ? "image://symbol/" + color.toString().substring(1) + "/" + name : ""
}
