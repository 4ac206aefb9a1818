// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// One titled group of pages in the settings sidebar.
Column {
    id: section

    property string title
    property var tabs: []
    property var favoritedTabs: []
    property int selectedTab: -1
    property string searchText: ""
    // Prefix of the rows' object names, so that a page listed twice can be told apart.
    property string rowPrefix: "tabRow:"
    // The sidebar's keyboard walker.
    property RowNavigator navigator: null

    signal tabSelected(int tab)
    signal favoriteToggled(int tab)

    spacing: 1

    SidebarSectionHeader { text: section.title }

    Repeater {
        model: section.tabs
        delegate: SettingsTabRow {
            required property int modelData
            objectName: section.rowPrefix + SettingsTab.title(modelData)
            width: section.width
            tab: modelData
            navigator: section.navigator
            isFavorited: section.favoritedTabs.indexOf(modelData) >= 0
            selected: section.selectedTab === modelData
            searchText: section.searchText
            onClicked: section.tabSelected(modelData)
            onToggleFavorite: section.favoriteToggled(modelData)
        }
    }
}
