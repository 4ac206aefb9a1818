// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The Appearance page: its pickers and switches, each written to the preferences at once.
// Tall enough that the whole page fits without scrolling, so every control can be clicked.
Item {
    width: 1100
    height: 1500

    Item {
        id: stage
        anchors.fill: parent
    }

    TestCase {
        id: testCase
        name: "AppearancePage"
        when: windowShown

        PageReader {
            id: reader
            testCase: testCase
        }

        Component {
            id: pageComponent
            AppearanceSettingsView {
                width: 1100
                height: 1500
            }
        }


        function init() {
            SettingsManager.reset()
        }

        function cleanup() {
            SettingsManager.reset()
        }

        function makePage() {
            return reader.make(pageComponent, stage)
        }

        function test_header() {
            const page = makePage()
            compare(findChild(page, "pageTitle").text, "Appearance")
            compare(findChild(page, "pageSubtitle").text, "Customize how Kivora looks and feels")
            compare(page.icon, "paintbrush.fill")
            verify(!findChild(page, "progressBadge").visible)
        }

        function test_pickersOfferEveryChoiceInOrder() {
            const page = makePage()
            for (const label of ["Dot", "Full Logo", "Text"])
                verify(reader.segment(page, "iconStylePicker", label), label)
            for (const label of ["System", "Light", "Dark"])
                verify(reader.segment(page, "appearancePicker", label), label)
            const dot = reader.segment(page, "iconStylePicker", "Dot")
            const full = reader.segment(page, "iconStylePicker", "Full Logo")
            const text = reader.segment(page, "iconStylePicker", "Text")
            verify(dot.x < full.x && full.x < text.x)
            const system = reader.segment(page, "appearancePicker", "System")
            const light = reader.segment(page, "appearancePicker", "Light")
            const dark = reader.segment(page, "appearancePicker", "Dark")
            verify(system.x < light.x && light.x < dark.x)
        }

        function test_factoryValuesAreShown() {
            const page = makePage()
            verify(reader.segment(page, "iconStylePicker", "Dot").selected)
            verify(!reader.segment(page, "iconStylePicker", "Text").selected)
            verify(reader.segment(page, "appearancePicker", "System").selected)
            compare(findChild(page, "iconStyleDescription").text,
                    "A simple colored dot in the menu bar")
            compare(findChild(page, "appearanceDescription").text,
                    "Adapts to your system's light or dark mode")
            verify(!findChild(findChild(page, "compactModeRow"), "toggle").checked)
            verify(findChild(findChild(page, "showEmailRow"), "toggle").checked)
            verify(findChild(findChild(page, "showSSHKeyRow"), "toggle").checked)
        }

        function test_switchRowsHaveTheirTexts() {
            const page = makePage()
            const rows = {
                "compactModeRow": ["Compact Mode", "Show simplified menu bar with less detail"],
                "showEmailRow": ["Show Profile Email", "Display email address in the menu bar"],
                "showSSHKeyRow": ["Show SSH Key Path", "Display SSH key information in the menu bar"]
            }
            for (const name in rows) {
                const row = findChild(page, name)
                compare(findChild(row, "toggleTitle").text, rows[name][0])
                compare(findChild(row, "toggleDescription").text, rows[name][1])
            }
        }

        function test_compactAndKeySwitchesWriteThrough() {
            const page = makePage()
            const preview = findChild(page, "preview")
            const normalHeight = preview.implicitHeight
            mouseClick(findChild(findChild(page, "compactModeRow"), "toggle"))
            compare(SettingsManager.compactMode, true)
            compare(reader.stored("compactMode"), "true")
            verify(preview.compact)
            verify(preview.implicitHeight < normalHeight)

            mouseClick(findChild(findChild(page, "showSSHKeyRow"), "toggle"))
            compare(SettingsManager.showSSHKey, false)
            compare(reader.stored("showSSHKey"), "false")
            verify(!findChild(findChild(page, "showSSHKeyRow"), "toggle").checked)
        }

        function test_switchFollowsAChangeMadeElsewhere() {
            const page = makePage()
            const toggle = findChild(findChild(page, "compactModeRow"), "toggle")
            mouseClick(toggle)
            verify(toggle.checked)
            // "Reset All Settings" in the sidebar changes the setting behind the page's back.
            SettingsManager.reset()
            verify(!toggle.checked)
            SettingsManager.menuBarIconStyle = "text"
            verify(reader.segment(page, "iconStylePicker", "Text").selected)
            verify(findChild(findChild(page, "preview"), "styleLetter").visible)
        }
    }
}
