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

    readonly property url homeFolder: StandardPaths.writableLocation(StandardPaths.HomeLocation)
    readonly property string jsonFilter: qsTr("JSON files (*.json)")

    // Export and import ask the desktop's file chooser first (the XDG portal); without one,
    // Qt's own dialog is shown.
    function chooseExportFile() {
        rememberFocus()
        chooser.purpose = "export"
        chooser.saveFile(view.Window.window, qsTr("Export Profiles"), qsTr("Save"),
                         "kivora-profiles.json", homeFolder, jsonFilter)
    }

    function chooseImportFile() {
        rememberFocus()
        chooser.purpose = "import"
        chooser.openFile(view.Window.window, qsTr("Import Profiles"), qsTr("Open"), homeFolder,
                         jsonFilter)
    }

    // `confirmed`: the dialog that returned `chosen` has already asked about replacing it.
    // ".json" is added to a name without an extension; replacing a file nobody asked about
    // yet needs the user's yes first.
    function saveExport(chosen: url, confirmed: bool) {
        const file = chooser.addingDefaultSuffix(chosen, "json")
        if (chooser.fileExists(file) && !(confirmed && String(file) === String(chosen))) {
            replaceDialog.ask(file, chooser.nameOf(file))
            return
        }
        view.exportProfiles(file)
    }

    function importProfiles(file: url): int {
        return ProfileTransfer.importFrom(file)
    }

    // The control the keyboard was on when a file dialog opened; it has the keyboard again
    // when the dialog closes.
    property Item focusBeforeDialog: null

    function rememberFocus() {
        view.focusBeforeDialog = view.Window.activeFocusItem
    }

    function dialogClosed() {
        if (view.focusBeforeDialog)
            view.focusBeforeDialog.forceActiveFocus(Qt.TabFocusReason)
        view.focusBeforeDialog = null
    }

    function resetAllSettings() {
        SettingsManager.reset()
    }

    FileChooser {
        id: chooser
        // What the open request is for: "export" or "import".
        property string purpose
        onAccepted: file => {
            view.dialogClosed()
            if (purpose === "export") {
                // The desktop's chooser asks itself before it returns an existing file.
                view.saveExport(file, true)
            } else {
                view.importProfiles(file)
            }
        }
        onRejected: view.dialogClosed()
        onUnavailable: {
            const dialog = (purpose === "export" ? exportDialog : importDialog).createObject(view)
            dialog.open()
        }
    }

    ReplaceFileDialog {
        id: replaceDialog
        objectName: "replaceDialog"
        onReplaceChosen: file => view.exportProfiles(file)
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
            acceptLabel: qsTr("Save")
            nameFilters: [view.jsonFilter]
            currentFolder: view.homeFolder
            selectedFile: view.homeFolder + "/kivora-profiles.json"
            onAccepted: {
                view.dialogClosed()
                // Qt's dialog does not ask before returning an existing file.
                view.saveExport(selectedFile, false)
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
            acceptLabel: qsTr("Open")
            nameFilters: [view.jsonFilter]
            currentFolder: view.homeFolder
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
            onExportRequested: view.chooseExportFile()
            onImportRequested: view.chooseImportFile()
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
                textFormat: Text.PlainText
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
