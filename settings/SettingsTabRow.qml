// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Kivora

// One page in the settings sidebar: its symbol and title, and a star to (un)favourite it,
// also offered in the row's context menu (the right mouse button, the Menu key or Shift+F10).
// From the keyboard the row is one of the sidebar's rows (RowNavigator): Space and Return show
// its page.
Rectangle {
    id: row

    property int tab: -1
    property bool isFavorited: false
    property bool selected: false
    property string searchText: ""
    readonly property string title: SettingsTab.title(tab)
    property RowNavigator navigator: null

    // For RowNavigator: this is a row, and the selected page is where the Tab chain enters.
    readonly property bool navigable: true
    readonly property bool preferredStop: selected

    signal clicked()
    signal toggleFavorite()

    function openMenu(atKeyboard: bool) {
        if (atKeyboard) {
            contextMenu.popup(row, Theme.spacingL, row.height / 2)
            contextMenu.currentIndex = 0
        } else {
            contextMenu.popup()
        }
    }

    implicitHeight: Theme.sidebarRowHeight
    radius: Theme.rowRadius

    opacity: SettingsTab.matchesSearch(tab, searchText) ? 1.0 : 0.5
    color: selected ? Theme.selection
                    : hover.hovered ? Theme.faded(Theme.controlBackground, 0.8) : "transparent"
    activeFocusOnTab: navigator ? navigator.tabStop === row : true

    Accessible.role: Accessible.PageTab
    Accessible.name: title
    Accessible.description: isFavorited ? qsTr("Favorite") : ""
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.focusable: true
    Accessible.onPressAction: row.clicked()

    Keys.onPressed: event => {
        if (row.navigator && row.navigator.handleKey(row, event)) {
            event.accepted = true
        } else if (event.key === Qt.Key_Space || event.key === Qt.Key_Return
                   || event.key === Qt.Key_Enter) {
            event.accepted = true
            row.clicked()
        } else if (event.key === Qt.Key_Menu
                   || (event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier))) {
            event.accepted = true
            row.openMenu(true)
        }
    }

    onActiveFocusChanged: {
        if (activeFocus && navigator)
            navigator.focused(row)
    }
    onSelectedChanged: navigator?.changed()
    onVisibleChanged: navigator?.changed()
    Component.onCompleted: navigator?.changed()
    Component.onDestruction: navigator?.changed()

    HoverHandler { id: hover }
    TapHandler { onTapped: row.clicked() }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: row.openMenu(false)
    }

    // The selected page's mark at the leading edge.
    Rectangle {
        visible: row.selected
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: 3
        height: parent.height - 2 * Theme.spacingM
        radius: width / 2
        color: Theme.accent
    }

    FocusRing {
        shown: row.activeFocus
        inset: true
        itemRadius: Theme.rowRadius
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
            textFormat: Text.PlainText
            Layout.fillWidth: true
            text: row.title
            font: Theme.body
            color: Theme.primaryText
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        SymbolButton {
            objectName: "starButton"
            // The keyboard uses the row's menu; the star is for the pointer and screen readers.
            focusPolicy: Qt.NoFocus
            size: Theme.symbolXXL
            symbol: row.isFavorited ? "star.fill" : "star"
            foreground: row.isFavorited ? Theme.yellow : Theme.secondaryText
            fillOpacity: 0
            symbolSize: Theme.symbolS
            tooltip: row.isFavorited ? qsTr("Remove from favorites") : qsTr("Add to favorites")
            onClicked: row.toggleFavorite()
        }
    }

    Menu {
        id: contextMenu
        MenuItem {
            objectName: "favoriteMenuItem"
            text: row.isFavorited ? qsTr("Remove from Favorites") : qsTr("Add to Favorites")
            onTriggered: row.toggleFavorite()
        }
    }
}
