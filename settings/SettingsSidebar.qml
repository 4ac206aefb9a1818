// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic
import Kivora

// The settings window's sidebar: search field, Favorites (while any), the General,
// Advanced and Account sections, and the quick actions. Search dims rows, never hides them.
// The rows are one stop of the Tab chain (the selected page's row); the arrow keys, Home and
// End walk all of them, quick actions included, and Down in the search field goes to them.
Rectangle {
    id: sidebar

    property int selectedTab: -1
    property var favoritedTabs: []
    property alias searchText: search.text
    readonly property bool searchFocused: search.activeFocus

    signal tabSelected(int tab)
    signal favoriteToggled(int tab)
    signal exportRequested()
    signal importRequested()
    signal resetRequested()

    function focusSearch() {
        search.forceActiveFocus()
    }

    color: Theme.sidebarBackground

    TextInputField {
        id: search
        objectName: "searchField"
        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.spacingL
        symbol: "magnifyingglass"
        placeholderText: qsTr("Search settings")
        Keys.onDownPressed: rowNavigator.focusPreferred()
    }

    RowNavigator {
        id: rowNavigator
        root: list
    }

    Flickable {
        id: flick
        anchors.top: search.bottom
        anchors.topMargin: Theme.spacingM
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        contentHeight: list.implicitHeight + 2 * Theme.spacingM
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {}

        Column {
            id: list
            Accessible.role: Accessible.PageTabList
            Accessible.name: qsTr("Settings pages")
            x: Theme.spacingM
            width: flick.width - 2 * Theme.spacingM
            spacing: 1

            SettingsSidebarSection {
                objectName: "favoritesSection"
                width: list.width
                visible: sidebar.favoritedTabs.length > 0
                title: qsTr("Favorites")
                navigator: rowNavigator
                rowPrefix: "favoriteRow:"
                tabs: SettingsTab.sortedByTitle(sidebar.favoritedTabs)
                favoritedTabs: sidebar.favoritedTabs
                selectedTab: sidebar.selectedTab
                searchText: sidebar.searchText
                onTabSelected: tab => sidebar.tabSelected(tab)
                onFavoriteToggled: tab => sidebar.favoriteToggled(tab)
            }

            Repeater {
                model: SettingsTab.sections()
                delegate: SettingsSidebarSection {
                    required property string modelData
                    objectName: "section:" + modelData
                    width: list.width
                    title: SettingsTab.sectionTitle(modelData)
                    navigator: rowNavigator
                    tabs: SettingsTab.tabsIn(modelData)
                    favoritedTabs: sidebar.favoritedTabs
                    selectedTab: sidebar.selectedTab
                    searchText: sidebar.searchText
                    onTabSelected: tab => sidebar.tabSelected(tab)
                    onFavoriteToggled: tab => sidebar.favoriteToggled(tab)
                }
            }

            SidebarSectionHeader { text: qsTr("Quick Actions") }
            QuickActionRow {
                objectName: "exportAction"
                width: list.width
                title: qsTr("Export Profiles")
                navigator: rowNavigator
                symbol: "square.and.arrow.up"
                onClicked: sidebar.exportRequested()
            }
            QuickActionRow {
                objectName: "importAction"
                width: list.width
                title: qsTr("Import Profiles")
                navigator: rowNavigator
                symbol: "square.and.arrow.down"
                onClicked: sidebar.importRequested()
            }
            QuickActionRow {
                objectName: "resetAction"
                width: list.width
                title: qsTr("Reset All Settings")
                navigator: rowNavigator
                symbol: "arrow.counterclockwise"
                destructive: true
                onClicked: sidebar.resetRequested()
            }
        }
    }
}
