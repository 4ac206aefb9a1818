import QtQuick
import Kivora

// A section title in the settings sidebar.
Text {
    width: parent ? parent.width : implicitWidth
    topPadding: 14
    bottomPadding: 4
    leftPadding: 10
    font.family: Theme.caption.family
    font.pixelSize: Theme.caption.pixelSize
    font.weight: Font.DemiBold
    color: Theme.tertiaryText
}
