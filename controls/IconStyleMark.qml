// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// The application's mark in the chosen icon style: "dot" an accent dot, "full" the logo,
// "text" the bold letter K. The popover's avatar and the appearance preview draw it.
Item {
    id: mark

    property string iconStyle: "dot"
    property int logoSize: Theme.rowButtonSize
    // The preview stretches the logo into its square; the avatar keeps its proportions.
    property bool stretchLogo: false

    implicitWidth: Theme.rowButtonSize
    implicitHeight: Theme.rowButtonSize

    Rectangle {
        objectName: "styleDot"
        visible: mark.iconStyle === "dot"
        anchors.centerIn: parent
        width: Theme.styleDotSize
        height: Theme.styleDotSize
        radius: width / 2
        color: Theme.accent
    }

    Image {
        objectName: "styleLogo"
        visible: mark.iconStyle === "full"
        anchors.centerIn: parent
        width: mark.logoSize
        height: mark.logoSize
        sourceSize.width: 2 * mark.logoSize
        sourceSize.height: 2 * mark.logoSize
        fillMode: mark.stretchLogo ? Image.Stretch : Image.PreserveAspectFit
        source: visible ? "qrc:/qt/qml/Kivora/assets/kivora-dot-transparent.svg" : ""
    }

    Text {
        textFormat: Text.PlainText
        objectName: "styleLetter"
        visible: mark.iconStyle === "text"
        anchors.centerIn: parent
        text: "K"
        font.family: Theme.systemFont.family
        font.pixelSize: Theme.symbolXL
        font.bold: true
        color: Theme.primaryText
    }
}
