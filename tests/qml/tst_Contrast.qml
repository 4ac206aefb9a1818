// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora

// Every text and symbol of the views against the surfaces it stands on, in light and dark:
// WCAG 2.1 AA, 4.5 : 1 for text and 3 : 1 for symbols, control outlines and the focus ring.
// The ratios are worked out from the theme's own colours; a colour with transparency is first
// laid over the surface under it, and a tinted surface over the one under that.
TestCase {
    id: testCase
    name: "Contrast"

    readonly property real textRatio: 4.5
    readonly property real graphicRatio: 3.0

    // The surfaces by name, each an opaque colour: a tinted one is laid over its base.
    function surfaces() {
        const T = Theme
        const s = {
            window: T.windowBackground,
            popover: T.popoverBackground,
            sidebar: T.sidebarBackground,
            control: T.controlBackground,
            card: T.cardBackground,
            field: T.fieldBackground,
            accentFill: T.accentFill
        }
        // A profile row of the settings page: the card at half strength over the window.
        s.settingsRow = over(T.faded(T.cardBackground, 0.5), s.window)
        s.selectedTab = over(T.selection, s.sidebar)
        s.hoveredTab = over(T.faded(T.controlBackground, 0.8), s.sidebar)
        s.banner = over(T.warningBackground, s.popover)
        s.headerIcon = over(T.faded(T.accent, 0.1), s.window)
        s.avatar = over(T.faded(T.accent, 0.15), s.control)
        s.orangeBadge = over(T.faded(T.orange, 0.12), s.card)
        s.headerBadgeOrange = over(T.faded(T.orange, 0.12), s.window)
        s.headerBadgeGreen = over(T.faded(T.green, 0.12), s.window)
        s.headerBadgeRed = over(T.faded(T.red, 0.12), s.window)
        s.redButton = over(T.faded(T.red, 0.12), s.card)
        for (const tint of ["purple", "green", "blue", "orange", "red", "accent"])
            s[tint + "Feature"] = over(T.faded(T.named(tint), 0.12), s.card)
        return s
    }

    // What is drawn on what: [foreground, its surfaces, the ratio it needs, what it is].
    function pairs() {
        const T = Theme
        const text = textRatio
        const graphic = graphicRatio
        const everywhere = ["window", "popover", "sidebar", "control", "card", "field",
                            "settingsRow", "selectedTab", "hoveredTab"]
        return [
            [T.primaryText, everywhere.concat(["banner"]), text, "primary text"],
            [T.secondaryText, everywhere, text, "secondary text"],
            [T.tertiaryText, ["window", "popover", "sidebar", "card", "field", "settingsRow",
                              "control"], text,
             "tertiary text: section headers, placeholders, status values, rules"],
            [T.accent, ["window", "popover", "card", "control"], text,
             "links, the editor's Cancel"],
            [T.accent, ["headerIcon"], graphic, "page header symbol"],
            [T.accentText, ["accentFill"], text, "default buttons, highlighted entries"],
            [T.green, ["popover", "control", "card", "window"], text, "Switched, verdicts"],
            [T.red, ["window", "popover", "card", "sidebar", "hoveredTab", "control"], text,
             "failures, destructive actions"],
            [T.red, ["redButton"], graphic, "delete symbol"],
            [T.orange, ["orangeBadge", "headerBadgeOrange"], text, "Coming Soon"],
            [T.green, ["headerBadgeGreen"], text, "Configured badge"],
            [T.red, ["headerBadgeRed"], text, "Needs Setup badge"],
            [T.orange, ["banner"], graphic, "setup warning symbol"],
            [T.yellow, ["sidebar", "selectedTab", "hoveredTab"], graphic, "favourite star"],
            [T.purple, ["purpleFeature"], graphic, "feature symbol"],
            [T.green, ["greenFeature"], graphic, "feature symbol"],
            [T.blue, ["blueFeature"], graphic, "feature symbol"],
            [T.accent, ["avatar"], graphic, "the avatar's dot"],
            [T.focusRing, everywhere.concat(["banner"]), graphic, "focus ring"],
            [T.controlBorder, ["window", "card", "field", "popover", "control"], graphic,
             "outline of fields, switches and pickers"],
            [T.accent, ["card", "window"], graphic, "outline of a switch that is on"],
            [T.green, ["popover", "card", "control"], graphic, "active profile's mark"],
            [T.secondaryText, ["popover", "card", "control", "settingsRow"], graphic,
             "inactive profile's mark"],
            [T.accent, ["selectedTab"], graphic, "selected page's mark and symbol"]
        ]
    }

    function over(top: color, base: color): color {
        const a = top.a
        return Qt.rgba(top.r * a + base.r * (1 - a), top.g * a + base.g * (1 - a),
                       top.b * a + base.b * (1 - a), 1)
    }

    function channel(c: real): real {
        return c <= 0.03928 ? c / 12.92 : Math.pow((c + 0.055) / 1.055, 2.4)
    }

    function luminance(c: color): real {
        return 0.2126 * channel(c.r) + 0.7152 * channel(c.g) + 0.0722 * channel(c.b)
    }

    function ratio(a: color, b: color): real {
        const la = luminance(a)
        const lb = luminance(b)
        return (Math.max(la, lb) + 0.05) / (Math.min(la, lb) + 0.05)
    }

    // Every pair of the mode; returns the lowest text ratio and the lowest graphic ratio.
    function check(mode: string) {
        SettingsManager.appAppearance = mode
        compare(Theme.dark, mode === "Dark")
        const s = surfaces()
        const failures = []
        let lowestText = 100
        let lowestGraphic = 100
        for (const [foreground, names, needed, what] of pairs()) {
            for (const name of names) {
                verify(s[name] !== undefined, name)
                const r = ratio(over(foreground, s[name]), s[name])
                if (needed === textRatio)
                    lowestText = Math.min(lowestText, r)
                else
                    lowestGraphic = Math.min(lowestGraphic, r)
                if (r < needed)
                    failures.push(what + " on " + name + ": " + r.toFixed(2) + " : 1")
            }
        }
        console.log(mode + ": lowest text ratio " + lowestText.toFixed(2)
                    + " : 1, lowest symbol and outline ratio " + lowestGraphic.toFixed(2) + " : 1")
        compare(failures, [], mode + " below AA")
    }

    function cleanup() {
        SettingsManager.appAppearance = "System"
    }

    function test_lightMeetsAA() {
        check("Light")
    }

    function test_darkMeetsAA() {
        check("Dark")
    }

    // The measure itself, on colours whose ratio is known.
    function test_ratioOfKnownColours() {
        const black = Qt.rgba(0, 0, 0, 1)
        const white = Qt.rgba(1, 1, 1, 1)
        fuzzyCompare(ratio(black, white), 21, 0.001)
        fuzzyCompare(ratio(white, white), 1, 0.001)
        // #777777 on white is the well-known borderline grey: 4.48 : 1.
        const grey = 0x77 / 255
        fuzzyCompare(ratio(Qt.rgba(grey, grey, grey, 1), white), 4.48, 0.01)
        // Black at 50 % over white is a grey of 127.5: 3.98 : 1.
        fuzzyCompare(ratio(over(Qt.rgba(0, 0, 0, 0.5), white), white), 3.98, 0.01)
    }
}
