import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Kivora

// Shown while profiles still need to be set up; a click opens the settings.
AbstractButton {
    id: banner
    // Assistive technology presses it as a click: Qt 6.4's controls offer the press action
    // but do nothing on it.
    Accessible.onPressAction: banner.clicked()

    hoverEnabled: true
    padding: 10
    text: "Setup required - click to configure profiles"

    contentItem: RowLayout {
        spacing: 8
        SymbolIcon {
            name: "exclamationmark.triangle.fill"
            color: Theme.orange
            size: 14
        }
        Text {
            Layout.fillWidth: true
            text: banner.text
            font: Theme.subheadline
            color: Theme.primaryText
            wrapMode: Text.WordWrap
        }
        SymbolIcon {
            name: "chevron.right"
            color: Theme.secondaryText
            size: 12
        }
    }

    background: Rectangle {
        radius: Theme.cornerRadius
        color: Theme.warningBackground
        border.color: Qt.rgba(Theme.orange.r, Theme.orange.g, Theme.orange.b,
                              banner.hovered ? 0.45 : 0.25)
        Behavior on border.color { ColorAnimation { duration: Theme.hoverDuration } }
    }
}
