import QtQuick
import Kivora

// A one-pixel separator line across the parent's width.
Rectangle {
    implicitHeight: 1
    implicitWidth: 1
    color: Theme.separator
}
