// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// A settings page taller than its window scrolls to its very end: the last profile row, the
// preview and the About footer can be brought fully into view, with the page's margin below.
Item {
    width: 840
    height: 650

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "PageScrolling"
        when: windowShown

        // Shorter than the settings window, so that every page scrolls.
        Component { id: aboutPage; AboutSettingsView { width: 840; height: 360 } }
        Component { id: appearancePage; AppearanceSettingsView { width: 840; height: 360 } }
        Component { id: profilesPage; ProfilesSettingsView { width: 840; height: 360 } }
        Component { id: hooksPage; HooksSettingsView { width: 840; height: 360 } }
        Component { id: aiPage; AISettingsView { width: 840; height: 360 } }

        function scrolledToEnd(component) {
            const page = createTemporaryObject(component, stage)
            waitForRendering(page)
            const flick = page.scrollView.contentItem
            verify(flick.contentHeight > flick.height, "the page scrolls")
            flick.contentY = flick.contentHeight - flick.height
            waitForRendering(page)
            return page
        }

        // The item's bottom edge, in the visible part of the page's scrolled area.
        function bottomInView(page, item) {
            return item.mapToItem(page.scrollView.contentItem, 0, item.height).y
        }

        function test_aboutFooterComesFullyIntoView() {
            const page = scrolledToEnd(aboutPage)
            const footer = findChild(page, "footer")
            const bottom = bottomInView(page, footer)
            verify(bottom <= page.scrollView.contentItem.height - Theme.spacingM, bottom)
        }

        function test_lastProfileRowComesFullyIntoView() {
            Fixture.arrange(8, true, false)
            const page = scrolledToEnd(profilesPage)
            const list = findChild(page, "profileList")
            let last = null
            for (let i = 0; i < list.children.length; ++i) {
                if (list.children[i].objectName === "profileRow:7")
                    last = list.children[i]
            }
            verify(last)
            verify(bottomInView(page, last) <= page.scrollView.contentItem.height - Theme.spacingM)
        }

        function test_everyPageEndsInView_data() {
            return [
                { tag: "appearance", page: appearancePage, last: "preview" },
                { tag: "hooks", page: hooksPage, last: "" },
                { tag: "ai", page: aiPage, last: "" }
            ]
        }

        function test_everyPageEndsInView(data) {
            Fixture.arrange(5, false, false)
            const page = scrolledToEnd(data.page)
            // The last card of the page, or the named item.
            let item = data.last.length > 0 ? findChild(page, data.last) : null
            if (!item) {
                const body = page.scrollView.contentItem.contentItem.children[0]
                item = body.children[body.children.length - 1]
            }
            verify(bottomInView(page, item) <= page.scrollView.contentItem.height - Theme.spacingM)
        }
    }
}
