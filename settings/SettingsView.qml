// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import QtQuick.Dialogs
import QtCore
import Kivora

// The settings window's content: the sidebar of pages with search, favourites and quick
// actions, and the selected page.
Item {
    id: view

    // All transient: nothing here is saved between runs.
    property int selectedTab: SettingsTab.Profiles
    property string searchText: ""
    property var favoritedTabs: []
    readonly property bool isSearchFocused: sidebar.searchFocused

    function toggleFavorite(tab: int) {
        favoritedTabs = SettingsTab.toggled(favoritedTabs, tab)
    }

    function focusSearch() {
        const window = view.Window.window
        if (window) {
            window.raise()
            window.requestActivate()
        }
        sidebar.focusSearch()
    }

    function exportProfiles(file: url): bool {
        return ProfileTransfer.exportTo(file)
    }

    function importProfiles(file: url): int {
        return ProfileTransfer.importFrom(file)
    }

    // The control the keyboard was on when a file dialog opened; it has the keyboard again
    // when the dialog closes.
    property Item focusBeforeDialog: null

    function openDialog(component: Component) {
        view.focusBeforeDialog = view.Window.activeFocusItem
        const dialog = component.createObject(view) as FileDialog
        dialog.open()
    }

    function dialogClosed() {
        if (view.focusBeforeDialog)
            view.focusBeforeDialog.forceActiveFocus(Qt.TabFocusReason)
        view.focusBeforeDialog = null
    }

    function resetAllSettings() {
        SettingsManager.reset()
    }

    // Ctrl+F in any of the application's windows moves to the search field.
    Shortcut {
        sequence: "Ctrl+F"
        context: Qt.ApplicationShortcut
        onActivated: view.focusSearch()
    }

    // The file dialogs are made when asked for: they are heavy and rarely used.
    Component {
        id: exportDialog
        FileDialog {
            title: qsTr("Export Profiles")
            fileMode: FileDialog.SaveFile
            nameFilters: [qsTr("JSON files (*.json)")]
            defaultSuffix: "json"
            currentFolder: StandardPaths.writableLocation(StandardPaths.HomeLocation)
            selectedFile: StandardPaths.writableLocation(StandardPaths.HomeLocation)
                          + "/kivora-profiles.json"
            onAccepted: {
                view.exportProfiles(selectedFile)
                view.dialogClosed()
                destroy()
            }
            onRejected: {
                view.dialogClosed()
                destroy()
            }
        }
    }

    Component {
        id: importDialog
        FileDialog {
            title: qsTr("Import Profiles")
            fileMode: FileDialog.OpenFile
            nameFilters: [qsTr("JSON files (*.json)")]
            currentFolder: StandardPaths.writableLocation(StandardPaths.HomeLocation)
            onAccepted: {
                view.importProfiles(selectedFile)
                view.dialogClosed()
                destroy()
            }
            onRejected: {
                view.dialogClosed()
                destroy()
            }
        }
    }

    RowLayout {
        anchors.fill: parent
        spacing: 0

        SettingsSidebar {
            id: sidebar
            objectName: "sidebar"
            Layout.fillHeight: true
            Layout.preferredWidth: 260
            Layout.minimumWidth: 250
            selectedTab: view.selectedTab
            favoritedTabs: view.favoritedTabs
            onSearchTextChanged: view.searchText = searchText
            onTabSelected: tab => view.selectedTab = tab
            onFavoriteToggled: tab => view.toggleFavorite(tab)
            onExportRequested: view.openDialog(exportDialog)
            onImportRequested: view.openDialog(importDialog)
            onResetRequested: view.resetAllSettings()
        }

        Rectangle {
            Layout.fillHeight: true
            implicitWidth: 1
            color: Theme.separator
        }

        ColumnLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 0

            SettingsPage {
                objectName: "detail"
                Layout.fillWidth: true
                Layout.fillHeight: true
                tab: view.selectedTab
            }

            // Why the last export or import did nothing; a click puts it away.
            Text {
                objectName: "transferError"
                Layout.fillWidth: true
                Layout.margins: Theme.spacingL
                visible: ProfileTransfer.error.length > 0
                text: ProfileTransfer.error
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
                font: Theme.subheadline
                color: Theme.red
                wrapMode: Text.Wrap

                TapHandler { onTapped: ProfileTransfer.error = "" }
            }
        }
    }
}
