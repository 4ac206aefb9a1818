import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Kivora

// One page in the settings sidebar: its symbol and title, and a star to (un)favourite it,
// also offered in the row's context menu.
Rectangle {
    id: row

    property int tab: -1
    property bool isFavorited: false
    property bool selected: false
    property string searchText: ""
    readonly property string title: SettingsTab.title(tab)

    signal clicked()
    signal toggleFavorite()

    implicitHeight: 32
    radius: 6

    // A page tab to assistive technology, named after its page.
    Accessible.role: Accessible.PageTab
    Accessible.name: row.title
    Accessible.selectable: true
    Accessible.selected: row.selected
    Accessible.onPressAction: row.clicked()
    opacity: SettingsTab.matchesSearch(tab, searchText) ? 1.0 : 0.5
    color: selected ? Theme.selection
                    : hover.hovered ? Qt.rgba(Theme.controlBackground.r, Theme.controlBackground.g,
                                              Theme.controlBackground.b, 0.8)
                                    : "transparent"

    HoverHandler { id: hover }
    TapHandler { onTapped: row.clicked() }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: contextMenu.popup()
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 6
        spacing: 10

        SymbolIcon {
            name: SettingsTab.icon(row.tab)
            color: row.selected ? Theme.accent : Theme.secondaryText
            size: 16
        }
        Text {
            Layout.fillWidth: true
            text: row.title
            font: Theme.body
            color: Theme.primaryText
            elide: Text.ElideRight
        }
        AbstractButton {
            id: star
            objectName: "starButton"
            implicitWidth: 22
            implicitHeight: 22
            hoverEnabled: true
            Accessible.name: ToolTip.text
            Accessible.onPressAction: star.clicked()
            ToolTip.text: row.isFavorited ? "Remove from favorites" : "Add to favorites"
            ToolTip.visible: hovered
            ToolTip.delay: 500
            onClicked: row.toggleFavorite()
            contentItem: Item {
                SymbolIcon {
                    anchors.centerIn: parent
                    name: row.isFavorited ? "star.fill" : "star"
                    color: row.isFavorited ? Theme.yellow : Theme.secondaryText
                    size: 12
                }
            }
            background: null
        }
    }

    Menu {
        id: contextMenu
        MenuItem {
            objectName: "favoriteMenuItem"
            text: row.isFavorited ? "Remove from Favorites" : "Add to Favorites"
            onTriggered: row.toggleFavorite()
        }
    }
}
