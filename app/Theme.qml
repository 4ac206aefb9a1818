// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

pragma Singleton

import QtQuick
import Kivora

// The application's one palette, type scale and set of measures. "System" follows the
// desktop's colour scheme; "Light" and "Dark" force one. Views take every spacing, radius and
// size from here rather than writing numbers of their own.
QtObject {
    id: theme

    readonly property bool dark: SettingsManager.appAppearance === "Dark"
                                 || (SettingsManager.appAppearance === "System"
                                     && SystemColorScheme.prefersDark)

    // Surfaces
    readonly property color windowBackground: dark ? "#1e1e21" : "#fafafb"
    readonly property color popoverBackground: dark ? "#28282c" : "#ffffff"
    readonly property color sidebarBackground: dark ? "#252528" : "#f0f0f3"
    readonly property color controlBackground: dark ? "#36363b" : "#ececf0"
    readonly property color cardBackground: dark ? "#2c2c31" : "#ffffff"
    readonly property color cardBorder: dark ? "#3a3a40" : "#e1e1e6"
    readonly property color fieldBackground: dark ? "#323237" : "#ffffff"
    readonly property color border: dark ? "#46464d" : "#d6d6dc"
    // The outline that tells where a control is (text fields, switches, pickers): it stands
    // out from every surface by at least 3 : 1.
    readonly property color controlBorder: dark ? "#8b8b95" : "#85858e"
    readonly property color separator: dark ? Qt.rgba(1, 1, 1, 0.09) : Qt.rgba(0, 0, 0, 0.08)
    readonly property color selection: dark ? Qt.rgba(0.47, 0.68, 0.93, 0.22)
                                            : Qt.rgba(0.21, 0.52, 0.89, 0.13)

    // Text
    readonly property color primaryText: dark ? "#f4f4f6" : "#1d1d21"
    // Every text colour reads at 4.5 : 1 or more on every surface (tests/qml/tst_Contrast.qml).
    readonly property color secondaryText: dark ? Qt.rgba(1, 1, 1, 0.72) : Qt.rgba(0, 0, 0, 0.66)
    readonly property color tertiaryText: dark ? Qt.rgba(1, 1, 1, 0.56) : Qt.rgba(0, 0, 0, 0.56)
    readonly property color quaternaryText: dark ? Qt.rgba(1, 1, 1, 0.22) : Qt.rgba(0, 0, 0, 0.16)

    // Accents. `accent` is for text and symbols on the surfaces (links, marks); `accentFill`
    // fills the default button, a switch that is on and a highlighted entry, with
    // `accentText` on it.
    readonly property color accent: dark ? "#78aeed" : "#1a65c4"
    readonly property color accentFill: dark ? "#2f6fc0" : "#1a65c4"
    readonly property color accentText: "#ffffff"
    // The ring around the control that has the keyboard focus.
    readonly property color focusRing: dark ? "#8cbcf5" : "#1a65c4"
    readonly property int focusRingWidth: 2
    readonly property int focusRingGap: 2
    readonly property color green: dark ? "#57d68d" : "#17754a"
    readonly property color orange: dark ? "#ffa348" : "#a84a00"
    readonly property color red: dark ? "#ff7b7b" : "#c01c28"
    readonly property color yellow: dark ? "#f8e45c" : "#9c6f00"
    readonly property color blue: dark ? "#78aeed" : "#1c71d8"
    readonly property color purple: dark ? "#d38ad9" : "#9141ac"
    readonly property color warningBackground: dark ? Qt.rgba(1, 0.64, 0.28, 0.14)
                                                    : Qt.rgba(0.9, 0.38, 0, 0.09)

    // A palette colour by name, for the few places that receive one ("green", "orange", …).
    function named(name: string): color {
        switch (name) {
        case "green": return green
        case "orange": return orange
        case "red": return red
        case "yellow": return yellow
        case "blue": return blue
        case "purple": return purple
        case "accent": return accent
        case "secondary": return secondaryText
        case "tertiary": return tertiaryText
        default: return primaryText
        }
    }

    // Type scale, derived from the desktop's interface font.
    readonly property font systemFont: SystemFont.font
    readonly property real baseSize: systemFont.pixelSize > 0
                                     ? systemFont.pixelSize
                                     : Math.round(systemFont.pointSize * 4 / 3)
    readonly property font body: Qt.font({ family: systemFont.family, pixelSize: baseSize })
    readonly property font headline: Qt.font({ family: systemFont.family, pixelSize: baseSize,
                                               weight: Font.DemiBold })
    readonly property font subheadline: Qt.font({ family: systemFont.family,
                                                  pixelSize: Math.max(10, baseSize - 2) })
    readonly property font caption: Qt.font({ family: systemFont.family,
                                              pixelSize: Math.max(9, baseSize - 3) })
    readonly property font title: Qt.font({ family: systemFont.family,
                                            pixelSize: Math.round(baseSize * 1.55),
                                            weight: Font.DemiBold })
    // The profile names of the popover's rows and of the settings page's rows.
    readonly property font rowTitle: Qt.font({ family: systemFont.family, pixelSize: 13,
                                               weight: Font.Medium })
    readonly property font settingsRowTitle: Qt.font({ family: systemFont.family, pixelSize: 14,
                                                       weight: Font.Medium })

    // A colour at another opacity.
    function faded(base: color, alpha: real): color {
        return Qt.rgba(base.r, base.g, base.b, alpha)
    }

    // Spacing, smallest first: between lines of one block, between items of a row, around
    // controls, between sections, around a page.
    readonly property int spacingXXS: 2
    readonly property int spacingXS: 4
    readonly property int spacingS: 6
    readonly property int spacingM: 8
    readonly property int spacingML: 10
    readonly property int spacingL: 12
    readonly property int spacingXL: 14
    readonly property int spacingXXL: 16
    readonly property int spacingSection: 20
    readonly property int spacingPage: 24
    readonly property int spacingSheet: 28
    readonly property int scanSheetPadding: 30

    // Corner radii.
    readonly property int smallRadius: 5
    readonly property int rowRadius: 6
    readonly property int controlRadius: 7
    readonly property int cornerRadius: 8
    readonly property int largeRadius: 10
    readonly property int cardRadius: 12

    // Sizes of controls and symbols.
    readonly property int controlHeight: 30
    readonly property int controlWidth: 200
    readonly property int narrowControlWidth: 120
    readonly property int signingPickerWidth: 110
    readonly property int buttonWidth: 80
    readonly property int iconButtonSize: 24
    readonly property int rowButtonSize: 28
    readonly property int switchWidth: 38
    readonly property int switchHeight: 22
    readonly property int knobSize: 18
    readonly property int headerIconSize: 40
    readonly property int successSymbolSize: 50
    readonly property int dialogSymbolSize: 30
    readonly property int largeTitleSymbolSize: 44
    readonly property int symbolXS: 11
    readonly property int symbolS: 12
    readonly property int symbolM: 13
    readonly property int symbolL: 14
    readonly property int symbolXL: 16
    readonly property int symbolXXL: 22
    readonly property int formLabelWidth: 92
    readonly property int logoSize: 56
    readonly property int previewLogoSize: 24
    readonly property int featureIconSize: 32
    readonly property int sidebarRowHeight: 32
    readonly property int popoverWidth: 320
    // Dots: the status rows' green dot, the popover rows' mark, the settings rows' mark, and
    // the accent dot of the "dot" icon style.
    readonly property int statusDotSize: 6
    readonly property int rowDotSize: 7
    readonly property int markDotSize: 8
    readonly property int styleDotSize: 20

    // Motion
    readonly property int hoverDuration: 150
    readonly property int statusDuration: 200
    readonly property int switchedDuration: 300
}
