// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The keyboard paths of the popover, the settings sidebar, the profiles page and the
// appearance pickers, with real key events: where the focus goes, that it shows, and what
// the keys do (a switch reaches git).
Item {
    width: 1100
    height: 800

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "Keyboard"
        when: windowShown

        Component {
            id: popoverComponent
            MenuBarView {}
        }

        Component {
            id: settingsComponent
            SettingsView {
                width: 1100
                height: 650
            }
        }

        Component {
            id: spyComponent
            SignalSpy {}
        }

        function popoverRow(view, name) {
            return findChild(view, "profileRow:" + name)
        }

        // The open row menu: it is made over the window's content.
        function rowMenu() {
            return findChild(stage.Window.window.contentItem, "rowActionsMenu")
        }

        function ringShown(item) {
            const ring = findChild(item, "focusRing")
            return ring !== null && ring.visible
        }

        function makePopover(count, firstActive) {
            Fixture.arrange(count, firstActive, false)
            const view = createTemporaryObject(popoverComponent, stage, { focus: true })
            waitForRendering(view)
            return view
        }

        function init() {
            SettingsManager.appAppearance = "Light"
        }

        // Opening the popover puts the focus on the active profile's row, where it shows.
        function test_popoverFocusesTheActiveRow() {
            Fixture.arrange(3, false, false)
            Fixture.arrange(3, true, false)
            const view = createTemporaryObject(popoverComponent, stage, { focus: true })
            Profiles.activate(Fixture.profileIds()[1])
            view.focusActiveRow()
            const row = popoverRow(view, "Profile 2")
            tryVerify(() => row.activeFocus)
            verify(ringShown(row))
            // Its actions show while it has the focus, as under the pointer.
            tryCompare(findChild(row, "hoverActions"), "opacity", 1)
        }

        function test_arrowsHomeAndEndWalkTheRows() {
            const view = makePopover(4, true)
            view.focusActiveRow()
            tryVerify(() => popoverRow(view, "Profile 1").activeFocus)
            keyClick(Qt.Key_Down)
            verify(popoverRow(view, "Profile 2").activeFocus)
            verify(ringShown(popoverRow(view, "Profile 2")))
            verify(!ringShown(popoverRow(view, "Profile 1")))
            keyClick(Qt.Key_End)
            verify(popoverRow(view, "Profile 4").activeFocus)
            keyClick(Qt.Key_Down)
            verify(popoverRow(view, "Profile 4").activeFocus)
            keyClick(Qt.Key_Home)
            verify(popoverRow(view, "Profile 1").activeFocus)
            keyClick(Qt.Key_Up)
            verify(popoverRow(view, "Profile 1").activeFocus)
            // Arrows only move: nothing was switched.
            compare(Fixture.activeProfileID(), Fixture.profileIds()[0])
        }

        function test_spaceAndReturnSwitchTheFocusedRow() {
            const view = makePopover(3, true)
            view.focusActiveRow()
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Space)
            compare(Fixture.activeProfileID(), Fixture.profileIds()[1])
            compare(Fixture.globalGitName(), "User 2")
            verify(popoverRow(view, "Profile 2").justSwitched)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Return)
            compare(Fixture.activeProfileID(), Fixture.profileIds()[2])
            compare(Fixture.globalGitName(), "User 3")
        }

        // Without a visible focus on a row, Space switches nothing.
        function test_spaceWithoutFocusSwitchesNothing() {
            const view = makePopover(3, true)
            for (const name of ["Profile 1", "Profile 2", "Profile 3"]) {
                verify(!popoverRow(view, name).activeFocus, name)
                verify(!ringShown(popoverRow(view, name)), name)
            }
            keyClick(Qt.Key_Space)
            keyClick(Qt.Key_Return)
            compare(Fixture.activeProfileID(), Fixture.profileIds()[0])
        }

        function test_tabLeavesTheListForTheFooter() {
            const view = makePopover(3, true)
            view.focusActiveRow()
            keyClick(Qt.Key_Tab)
            verify(findChild(view, "addProfileButton").activeFocus)
            verify(ringShown(findChild(view, "addProfileButton")))
            keyClick(Qt.Key_Tab)
            verify(findChild(view, "settingsButton").activeFocus)
            keyClick(Qt.Key_Tab)
            verify(findChild(view, "quitButton").activeFocus)
            // Back into the list at the row that had the focus, not at every row.
            keyClick(Qt.Key_Backtab)
            keyClick(Qt.Key_Backtab)
            keyClick(Qt.Key_Backtab)
            verify(popoverRow(view, "Profile 1").activeFocus)
        }

        function test_menuKeyOffersTheRowsActions() {
            const view = makePopover(2, true)
            const spy = createTemporaryObject(spyComponent, testCase,
                                              { target: view, signalName: "dismissRequested" })
            view.focusActiveRow()
            keyClick(Qt.Key_Down)
            const row = popoverRow(view, "Profile 2")
            keyClick(Qt.Key_F10, Qt.ShiftModifier)
            const menu = rowMenu()
            verify(menu)
            tryCompare(menu, "opened", true)
            compare(menu.count, 3)
            compare(menu.itemAt(0).text, "Open Terminal")
            compare(menu.itemAt(1).text, "Edit")
            compare(menu.itemAt(2).text, "Delete")
            // Escape closes the menu (it goes away), not the popover.
            keyClick(Qt.Key_Escape)
            tryVerify(() => rowMenu() === null)
            compare(spy.count, 0)
            tryVerify(() => row.activeFocus, 5000, "the focus did not come back to the row")
            // The Menu key opens it too; Delete removes the profile.
            keyClick(Qt.Key_Menu)
            tryVerify(() => rowMenu() !== null)
            tryCompare(rowMenu(), "opened", true)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Return)
            tryVerify(() => Fixture.savedProfileCount() === 1, 5000, "not saved")
            tryVerify(() => rowMenu() === null, 5000, "the menu stayed")
            compare(Fixture.profileNames(), ["Profile 1"])
            // The keyboard is not lost: the remaining row has it.
            tryVerify(() => popoverRow(view, "Profile 1").activeFocus)
            keyClick(Qt.Key_Escape)
            compare(spy.count, 1)
        }

        function test_sidebarWalksWithArrowsAndReturnShowsThePage() {
            Fixture.arrange(2, true, false)
            const view = createTemporaryObject(settingsComponent, stage)
            waitForRendering(view)
            findChild(view, "searchField").forceActiveFocus()
            keyClick(Qt.Key_Down)
            const profiles = findChild(view, "tabRow:Profiles")
            verify(profiles.activeFocus)
            verify(ringShown(profiles))
            keyClick(Qt.Key_Down)
            verify(findChild(view, "tabRow:Appearance").activeFocus)
            // Moving does not change the page; Return does.
            compare(view.selectedTab, SettingsTab.Profiles)
            keyClick(Qt.Key_Return)
            compare(view.selectedTab, SettingsTab.Appearance)
            keyClick(Qt.Key_End)
            verify(findChild(view, "resetAction").activeFocus)
            keyClick(Qt.Key_Up)
            verify(findChild(view, "importAction").activeFocus)
            keyClick(Qt.Key_Home)
            verify(profiles.activeFocus)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Space)
            compare(view.selectedTab, SettingsTab.Notifications)
        }

        function test_sidebarMenuKeyFavorites() {
            Fixture.arrange(1, true, false)
            const view = createTemporaryObject(settingsComponent, stage)
            waitForRendering(view)
            findChild(view, "searchField").forceActiveFocus()
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Menu)
            const item = findChild(findChild(view, "tabRow:Appearance"), "favoriteMenuItem")
            compare(item.text, "Add to Favorites")
            tryVerify(() => item.highlighted)
            keyClick(Qt.Key_Return)
            compare(view.favoritedTabs, [SettingsTab.Appearance])
            tryVerify(() => findChild(view, "favoritesSection").visible)
        }

        function test_tabEntersTheSidebarAtTheSelectedPage() {
            Fixture.arrange(1, true, false)
            const view = createTemporaryObject(settingsComponent, stage)
            waitForRendering(view)
            view.selectedTab = SettingsTab.Updates
            wait(50)
            findChild(view, "searchField").forceActiveFocus()
            keyClick(Qt.Key_Tab)
            verify(findChild(view, "tabRow:Updates").activeFocus)
            // One stop: the next Tab leaves the sidebar for the page.
            keyClick(Qt.Key_Tab)
            const focused = view.Window.activeFocusItem
            let inSidebar = false
            for (let item = focused; item; item = item.parent) {
                if (item === findChild(view, "sidebar"))
                    inSidebar = true
            }
            verify(!inSidebar, "Tab stayed in the sidebar")
        }

        function test_profilesPageRowsAndTheirMenu() {
            Fixture.arrange(3, true, false)
            const view = createTemporaryObject(settingsComponent, stage)
            waitForRendering(view)
            findChild(view, "searchField").forceActiveFocus()
            keyClick(Qt.Key_Tab)   // the sidebar's rows
            keyClick(Qt.Key_Tab)   // the page: Scan SSH Keys
            verify(findChild(view, "scanButton").activeFocus)
            keyClick(Qt.Key_Tab)   // Add Profile
            verify(findChild(view, "addButton").activeFocus)
            keyClick(Qt.Key_Tab)   // the list, at the active profile's row
            const first = findChild(view, "profileRow:0")
            verify(first.activeFocus)
            verify(ringShown(first))
            keyClick(Qt.Key_Down)
            const second = findChild(view, "profileRow:1")
            verify(second.activeFocus)
            keyClick(Qt.Key_Space)
            compare(Fixture.activeProfileID(), Fixture.profileIds()[1])
            compare(Fixture.globalGitName(), "User 2")

            // Shift+F10: Edit profile, Delete profile; Delete asks, with Delete focused.
            keyClick(Qt.Key_F10, Qt.ShiftModifier)
            const menu = rowMenu()
            tryCompare(menu, "opened", true)
            compare(menu.itemAt(0).text, "Edit profile")
            compare(menu.itemAt(1).text, "Delete profile")
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Return)
            const dialog = findChild(second, "deleteConfirmation")
            tryCompare(dialog, "opened", true)
            const deleteButton = findChild(dialog.contentItem, "deleteButton")
            tryVerify(() => deleteButton.activeFocus)
            verify(deleteButton.visualFocus)
            keyClick(Qt.Key_Return)
            tryVerify(() => Fixture.savedProfileCount() === 2, 5000)
            compare(Fixture.profileNames(), ["Profile 1", "Profile 3"])
        }

        function test_deleteDialogEscapeCancels() {
            Fixture.arrange(2, true, false)
            const view = createTemporaryObject(settingsComponent, stage)
            waitForRendering(view)
            const row = findChild(view, "profileRow:0")
            row.forceActiveFocus(Qt.TabFocusReason)
            keyClick(Qt.Key_Menu)
            keyClick(Qt.Key_Down)
            keyClick(Qt.Key_Return)
            const dialog = findChild(row, "deleteConfirmation")
            tryCompare(dialog, "opened", true)
            keyClick(Qt.Key_Escape)
            tryCompare(dialog, "opened", false)
            compare(Fixture.profileNames(), ["Profile 1", "Profile 2"])
            tryVerify(() => row.activeFocus)
        }

        function test_segmentedPickerIsARadioGroup() {
            Fixture.arrange(1, true, false)
            const view = createTemporaryObject(settingsComponent, stage)
            waitForRendering(view)
            view.selectedTab = SettingsTab.Appearance
            SettingsManager.appAppearance = "Light"
            const light = findChild(view, "segment:Light")
            tryVerify(() => light !== null)
            light.forceActiveFocus(Qt.TabFocusReason)
            verify(ringShown(light))
            keyClick(Qt.Key_Right)
            compare(SettingsManager.appAppearance, "Dark")
            verify(findChild(view, "segment:Dark").activeFocus)
            keyClick(Qt.Key_Home)
            compare(SettingsManager.appAppearance, "System")
            keyClick(Qt.Key_End)
            compare(SettingsManager.appAppearance, "Dark")
            // One stop: Tab goes on to the next control, not to another segment.
            keyClick(Qt.Key_Tab)
            verify(!findChild(view, "segment:System").activeFocus)
            verify(!findChild(view, "segment:Light").activeFocus)
        }
    }
}
