// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The TestCase item itself is invisible, so the views are made on a visible stage beside it.
Item {
    width: 1100
    height: 650

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "SettingsView"
        when: windowShown

        Component {
            id: viewComponent
            SettingsView {
                width: 1100
                height: 650
            }
        }

        function makeView() {
            return createTemporaryObject(viewComponent, stage)
        }

        function test_startsOnProfiles() {
            const view = makeView()
            compare(view.selectedTab, SettingsTab.Profiles)
            compare(findChild(view, "pageTitle").text, "Profiles")
            compare(findChild(view, "pageSubtitle").text, "Manage your git identities")
            verify(!findChild(view, "favoritesSection").visible)
        }

        function test_searchDimsInsteadOfFiltering() {
            const view = makeView()
            const search = findChild(view, "searchField")
            search.forceActiveFocus()
            keyClick(Qt.Key_S)
            compare(view.searchText, "s")
            const dimmed = ["AI", "Appearance", "About"]
            for (const title of ["Profiles", "AI", "SSH", "Appearance", "Hooks", "Notifications",
                                 "Sync", "About", "Updates"]) {
                const row = findChild(view, "tabRow:" + title)
                verify(row.visible, title)
                compare(row.opacity, dimmed.indexOf(title) >= 0 ? 0.5 : 1.0, title)
            }
            verify(findChild(view, "exportAction").opacity === 1)
        }

        function test_favoritesAreSortedByTitle() {
            const view = makeView()
            mouseClick(findChild(findChild(view, "tabRow:Updates"), "starButton"))
            mouseClick(findChild(findChild(view, "tabRow:AI"), "starButton"))
            const section = findChild(view, "favoritesSection")
            verify(section.visible)
            const ai = findChild(section, "favoriteRow:AI")
            const updates = findChild(section, "favoriteRow:Updates")
            tryVerify(() => ai.y > 0 && ai.y < updates.y)
            compare(findChild(ai, "starButton").ToolTip.text, "Remove from favorites")
            compare(findChild(findChild(view, "tabRow:SSH"), "starButton").ToolTip.text,
                    "Add to favorites")
            // Unfavouriting the last one hides the section again.
            view.toggleFavorite(SettingsTab.AI)
            view.toggleFavorite(SettingsTab.Updates)
            verify(!section.visible)
        }

        function test_selectingARowShowsItsPage() {
            const view = makeView()
            mouseClick(findChild(view, "tabRow:About"))
            compare(view.selectedTab, SettingsTab.About)
            tryCompare(findChild(view, "pageTitle"), "text", "About")
        }

        function test_ctrlFFocusesTheSearch() {
            const view = makeView()
            verify(!view.isSearchFocused)
            keyClick(Qt.Key_F, Qt.ControlModifier)
            verify(view.isSearchFocused)
        }

        function test_exportThenImportDoublesTheList() {
            Fixture.arrangeForTransfer()
            const view = makeView()
            const before = Fixture.profileIds()
            verify(view.exportProfiles(Fixture.homeFile("kivora-profiles.json")))
            verify(Fixture.homeFileExists("kivora-profiles.json"))
            compare(view.importProfiles(Fixture.homeFile("kivora-profiles.json")), 2)

            const ids = Fixture.profileIds()
            compare(ids.length, 4)
            compare(ids.slice(0, 2), before)
            verify(before.indexOf(ids[2]) < 0 && before.indexOf(ids[3]) < 0 && ids[2] !== ids[3])
            // Display names go through the rule for new profiles; the identity is kept.
            compare(Fixture.profileNames(), ["id_rsa_Work", "work laptop", "Rsa_work", "Work Laptop"])
            compare(Fixture.profileGitNames(), ["Ada", "Ada L", "Ada", "Ada L"])
            // Only the original still carries an AI configuration.
            compare(Fixture.profilesWithAI(), 1)
        }

        function test_importOfABadFileImportsNothing() {
            Fixture.arrangeForTransfer()
            const view = makeView()
            compare(view.importProfiles(Fixture.homeFile(".git-switcher/profiles.json")), 0)
            compare(view.importProfiles(Fixture.homeFile("missing.json")), 0)
            compare(Fixture.profileIds().length, 2)
        }

        function test_resetPutsPreferencesBack() {
            const view = makeView()
            SettingsManager.compactMode = true
            SettingsManager.menuBarIconStyle = "text"
            const names = Fixture.profileNames()
            mouseClick(findChild(view, "resetAction"))
            compare(SettingsManager.compactMode, false)
            compare(SettingsManager.menuBarIconStyle, "dot")
            compare(Fixture.profileNames(), names)
        }
    }
}
