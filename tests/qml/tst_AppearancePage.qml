import QtQuick
import QtTest
import Kivora
import KivoraTest

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
            const page = createTemporaryObject(pageComponent, stage)
            waitForRendering(page)
            return page
        }

        function segment(page, pickerName, label) {
            return findChild(findChild(page, pickerName), "segment:" + label)
        }

        // A value as it stands in the preferences file in the temporary home (INI text, as
        // QSettings writes it on Linux), or undefined when the key is absent.
        function stored(key) {
            const text = ProfilesFixture.homeFileText(".config/Kivora/Kivora.conf")
            let group = "General"
            for (const raw of text.split("\n")) {
                const line = raw.trim()
                if (line.startsWith("[")) {
                    group = line.slice(1, -1)
                    continue
                }
                const equals = line.indexOf("=")
                if (group === "General" && equals > 0 && line.slice(0, equals) === key)
                    return line.slice(equals + 1)
            }
            return undefined
        }

        function relativeLuminance(c) {
            return 0.2126 * c.r + 0.7152 * c.g + 0.0722 * c.b
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
                verify(segment(page, "iconStylePicker", label), label)
            for (const label of ["System", "Light", "Dark"])
                verify(segment(page, "appearancePicker", label), label)
            const dot = segment(page, "iconStylePicker", "Dot")
            const full = segment(page, "iconStylePicker", "Full Logo")
            const text = segment(page, "iconStylePicker", "Text")
            verify(dot.x < full.x && full.x < text.x)
            const system = segment(page, "appearancePicker", "System")
            const light = segment(page, "appearancePicker", "Light")
            const dark = segment(page, "appearancePicker", "Dark")
            verify(system.x < light.x && light.x < dark.x)
        }

        function test_factoryValuesAreShown() {
            const page = makePage()
            verify(segment(page, "iconStylePicker", "Dot").selected)
            verify(!segment(page, "iconStylePicker", "Text").selected)
            verify(segment(page, "appearancePicker", "System").selected)
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

        function test_textStyleChangesThePreviewAtOnce() {
            const page = makePage()
            const preview = findChild(page, "preview")
            verify(findChild(preview, "styleDot").visible)
            verify(!findChild(preview, "styleLetter").visible)

            mouseClick(segment(page, "iconStylePicker", "Text"))
            compare(SettingsManager.menuBarIconStyle, "text")
            compare(stored("menuBarIconStyle"), "text")
            verify(segment(page, "iconStylePicker", "Text").selected)
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
            mouseClick(segment(page, "iconStylePicker", "Full Logo"))
            compare(SettingsManager.menuBarIconStyle, "full")
            compare(stored("menuBarIconStyle"), "full")
            const logo = findChild(findChild(page, "preview"), "styleLogo")
            verify(logo.visible)
            compare(logo.width, 24)
            compare(logo.height, 24)
            compare(findChild(page, "iconStyleDescription").text,
                    "Full Kivora logo icon in the menu bar")

            mouseClick(segment(page, "iconStylePicker", "Dot"))
            compare(SettingsManager.menuBarIconStyle, "dot")
            compare(stored("menuBarIconStyle"), "dot")
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
            compare(stored("showProfileEmail"), "false")
            verify(!toggle.checked)
            verify(!line.visible)

            mouseClick(toggle)
            compare(SettingsManager.showProfileEmail, true)
            compare(stored("showProfileEmail"), "true")
            verify(line.visible)
        }

        function test_compactAndKeySwitchesWriteThrough() {
            const page = makePage()
            const preview = findChild(page, "preview")
            const normalHeight = preview.implicitHeight
            mouseClick(findChild(findChild(page, "compactModeRow"), "toggle"))
            compare(SettingsManager.compactMode, true)
            compare(stored("compactMode"), "true")
            verify(preview.compact)
            verify(preview.implicitHeight < normalHeight)

            mouseClick(findChild(findChild(page, "showSSHKeyRow"), "toggle"))
            compare(SettingsManager.showSSHKey, false)
            compare(stored("showSSHKey"), "false")
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
            verify(segment(page, "iconStylePicker", "Text").selected)
            verify(findChild(findChild(page, "preview"), "styleLetter").visible)
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
            mouseClick(segment(page, "appearancePicker", "Dark"))
            compare(SettingsManager.appAppearance, "Dark")
            compare(stored("appAppearance"), "Dark")
            verify(Theme.dark)
            compare(findChild(page, "appearanceDescription").text, "Always uses dark appearance")
            verify(relativeLuminance(page.color) < 0.2)
            verify(relativeLuminance(findChild(page, "pageTitle").color) > 0.8)

            mouseClick(segment(page, "appearancePicker", "Light"))
            compare(SettingsManager.appAppearance, "Light")
            compare(stored("appAppearance"), "Light")
            verify(!Theme.dark)
            compare(findChild(page, "appearanceDescription").text, "Always uses light appearance")
            verify(relativeLuminance(page.color) > 0.8)
            verify(relativeLuminance(findChild(page, "pageTitle").color) < 0.2)

            // System follows the desktop again.
            mouseClick(segment(page, "appearancePicker", "System"))
            compare(SettingsManager.appAppearance, "System")
            compare(stored("appAppearance"), "System")
            compare(Theme.dark, SystemColorScheme.prefersDark)
        }

        function test_darkInTheSettingsWindowContent() {
            const view = createTemporaryObject(viewComponent, stage)
            mouseClick(findChild(view, "tabRow:Appearance"))
            tryCompare(findChild(view, "pageTitle"), "text", "Appearance")
            const sidebar = findChild(view, "sidebar")
            const page = findChild(view, "pageTitle")
            mouseClick(findChild(view, "segment:Light"))
            verify(relativeLuminance(sidebar.color) > 0.8)
            mouseClick(findChild(view, "segment:Dark"))
            // The sidebar, outside the page, turns with it.
            verify(relativeLuminance(sidebar.color) < 0.2)
            verify(relativeLuminance(page.color) > 0.8)
        }
    }
}
