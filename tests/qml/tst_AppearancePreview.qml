// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The Appearance page's live preview, and the light and dark appearance turning the windows
// at once.
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
        name: "AppearancePreview"
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

        Component {
            id: viewComponent
            SettingsView {
                width: 1100
                height: 650
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

        function test_textStyleChangesThePreviewAtOnce() {
            const page = makePage()
            const preview = findChild(page, "preview")
            verify(findChild(preview, "styleDot").visible)
            verify(!findChild(preview, "styleLetter").visible)

            mouseClick(reader.segment(page, "iconStylePicker", "Text"))
            compare(SettingsManager.menuBarIconStyle, "text")
            compare(reader.stored("menuBarIconStyle"), "text")
            verify(reader.segment(page, "iconStylePicker", "Text").selected)
            const letter = findChild(preview, "styleLetter")
            verify(letter.visible)
            compare(letter.text, "K")
            verify(letter.font.bold)
            compare(letter.font.pixelSize, 16)
            verify(!findChild(preview, "styleDot").visible)
            verify(!findChild(preview, "styleLogo").visible)
            compare(findChild(page, "iconStyleDescription").text,
                    "Text 'K' displayed in the menu bar")
        }

        function test_fullLogoStyle() {
            const page = makePage()
            mouseClick(reader.segment(page, "iconStylePicker", "Full Logo"))
            compare(SettingsManager.menuBarIconStyle, "full")
            compare(reader.stored("menuBarIconStyle"), "full")
            const logo = findChild(findChild(page, "preview"), "styleLogo")
            verify(logo.visible)
            compare(logo.width, 24)
            compare(logo.height, 24)
            compare(findChild(page, "iconStyleDescription").text,
                    "Full Kivora logo icon in the menu bar")

            mouseClick(reader.segment(page, "iconStylePicker", "Dot"))
            compare(SettingsManager.menuBarIconStyle, "dot")
            compare(reader.stored("menuBarIconStyle"), "dot")
            const dot = findChild(findChild(page, "preview"), "styleDot")
            verify(dot.visible)
            compare(dot.width, 20)
            compare(dot.height, 20)
        }

        function test_emailSwitchRemovesThePreviewLine() {
            const page = makePage()
            const line = findChild(findChild(page, "preview"), "previewEmailLine")
            verify(line.visible)
            verify(line.text.indexOf(" · ") > 0)
            verify(line.text.indexOf("@") > 0)

            const toggle = findChild(findChild(page, "showEmailRow"), "toggle")
            mouseClick(toggle)
            compare(SettingsManager.showProfileEmail, false)
            compare(reader.stored("showProfileEmail"), "false")
            verify(!toggle.checked)
            verify(!line.visible)

            mouseClick(toggle)
            compare(SettingsManager.showProfileEmail, true)
            compare(reader.stored("showProfileEmail"), "true")
            verify(line.visible)
        }

        function test_previewButtonsDoNothing() {
            const page = makePage()
            const before = [SettingsManager.menuBarIconStyle, SettingsManager.appAppearance,
                            SettingsManager.showProfileEmail, SettingsManager.showSSHKey,
                            SettingsManager.compactMode]
            const names = Fixture.profileNames()
            const file = ProfilesFixture.homeFileText(".config/Kivora/Kivora.conf")
            for (const name of ["previewAdd", "previewSettings", "previewQuit"])
                mouseClick(findChild(page, name))
            compare([SettingsManager.menuBarIconStyle, SettingsManager.appAppearance,
                     SettingsManager.showProfileEmail, SettingsManager.showSSHKey,
                     SettingsManager.compactMode], before)
            compare(ProfilesFixture.homeFileText(".config/Kivora/Kivora.conf"), file)
            compare(Fixture.profileNames(), names)
            verify(page.visible)
        }

        function test_darkAndLightTurnThePageAtOnce() {
            const page = makePage()
            mouseClick(reader.segment(page, "appearancePicker", "Dark"))
            compare(SettingsManager.appAppearance, "Dark")
            compare(reader.stored("appAppearance"), "Dark")
            verify(Theme.dark)
            compare(findChild(page, "appearanceDescription").text, "Always uses dark appearance")
            verify(reader.relativeLuminance(page.color) < 0.2)
            verify(reader.relativeLuminance(findChild(page, "pageTitle").color) > 0.8)

            mouseClick(reader.segment(page, "appearancePicker", "Light"))
            compare(SettingsManager.appAppearance, "Light")
            compare(reader.stored("appAppearance"), "Light")
            verify(!Theme.dark)
            compare(findChild(page, "appearanceDescription").text, "Always uses light appearance")
            verify(reader.relativeLuminance(page.color) > 0.8)
            verify(reader.relativeLuminance(findChild(page, "pageTitle").color) < 0.2)

            // System follows the desktop again.
            mouseClick(reader.segment(page, "appearancePicker", "System"))
            compare(SettingsManager.appAppearance, "System")
            compare(reader.stored("appAppearance"), "System")
            compare(Theme.dark, SystemColorScheme.prefersDark)
        }

        function test_darkInTheSettingsWindowContent() {
            const view = createTemporaryObject(viewComponent, stage)
            mouseClick(findChild(view, "tabRow:Appearance"))
            tryCompare(findChild(view, "pageTitle"), "text", "Appearance")
            const sidebar = findChild(view, "sidebar")
            const page = findChild(view, "pageTitle")
            mouseClick(findChild(view, "segment:Light"))
            verify(reader.relativeLuminance(sidebar.color) > 0.8)
            mouseClick(findChild(view, "segment:Dark"))
            // The sidebar, outside the page, turns with it.
            verify(reader.relativeLuminance(sidebar.color) < 0.2)
            verify(reader.relativeLuminance(page.color) > 0.8)
        }
    }
}
