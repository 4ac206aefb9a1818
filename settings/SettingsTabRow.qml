// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

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

    implicitHeight: Theme.sidebarRowHeight
    radius: Theme.rowRadius

    // A page tab to assistive technology, named after its page.
    Accessible.role: Accessible.PageTab
    Accessible.name: row.title
    Accessible.selectable: true
    Accessible.selected: row.selected
    Accessible.onPressAction: row.clicked()
    opacity: SettingsTab.matchesSearch(tab, searchText) ? 1.0 : 0.5
    color: selected ? Theme.selection
                    : hover.hovered ? Theme.faded(Theme.controlBackground, 0.8) : "transparent"

    HoverHandler { id: hover }
    TapHandler { onTapped: row.clicked() }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: contextMenu.popup()
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.spacingML
        anchors.rightMargin: Theme.spacingS
        spacing: Theme.spacingML

        SymbolIcon {
            name: SettingsTab.icon(row.tab)
            color: row.selected ? Theme.accent : Theme.secondaryText
            size: Theme.symbolXL
        }
        Text {
            Layout.fillWidth: true
            text: row.title
            font: Theme.body
            color: Theme.primaryText
            elide: Text.ElideRight
        }
        SymbolButton {
            objectName: "starButton"
            size: Theme.symbolXXL
            symbol: row.isFavorited ? "star.fill" : "star"
            foreground: row.isFavorited ? Theme.yellow : Theme.secondaryText
            fillOpacity: 0
            symbolSize: Theme.symbolS
            tooltip: row.isFavorited ? "Remove from favorites" : "Add to favorites"
            onClicked: row.toggleFavorite()
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
