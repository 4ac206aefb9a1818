// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import QtQuick.Window
import Kivora

// The frame of every settings page: a header with the page's symbol, title, subtitle and,
// when set, its feature status badge; a divider; then the page's content, scrolling. The
// scrolled area is as tall as the content and its margins, so the end of a page can always
// be scrolled into view. The control the keyboard is in is scrolled into view too.
Rectangle {
    id: container

    property string title
    property string subtitle
    property string icon
    // A SettingsProgress value, or -1 for no badge.
    property int progress: -1
    default property alias content: body.data
    readonly property alias scrollView: scroll

    color: Theme.windowBackground

    readonly property Item focusedItem: Window.activeFocusItem

    // Page Up and Page Down scroll the page while the keyboard is in it.
    Keys.onPressed: event => {
        const flick = scroll.contentItem as Flickable
        if (!flick || (event.key !== Qt.Key_PageDown && event.key !== Qt.Key_PageUp))
            return
        const step = flick.height * 0.9 * (event.key === Qt.Key_PageDown ? 1 : -1)
        flick.contentY = Math.max(0, Math.min(Math.max(0, flick.contentHeight - flick.height),
                                              flick.contentY + step))
        event.accepted = true
    }

    onFocusedItemChanged: {
        const flick = scroll.contentItem as Flickable
        const item = container.focusedItem
        if (!flick || !item || !body.visible)
            return
        for (let parent = item.parent; parent; parent = parent.parent) {
            if (parent === body) {
                const top = item.mapToItem(flick.contentItem, 0, 0).y
                const margin = Theme.spacingM
                if (top - margin < flick.contentY) {
                    flick.contentY = Math.max(0, top - margin)
                } else if (top + item.height + margin > flick.contentY + flick.height) {
                    flick.contentY = Math.max(0, Math.min(flick.contentHeight - flick.height,
                                                          top + item.height + margin - flick.height))
                }
                return
            }
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        RowLayout {
            id: header
            objectName: "pageHeader"
            Layout.fillWidth: true
            Layout.margins: Theme.spacingPage
            spacing: Theme.spacingXL

            Rectangle {
                implicitWidth: Theme.headerIconSize
                implicitHeight: Theme.headerIconSize
                radius: Theme.largeRadius
                color: Theme.faded(Theme.accent, 0.1)
                SymbolIcon {
                    anchors.centerIn: parent
                    name: container.icon
                    color: Theme.accent
                    size: Theme.symbolXXL
                }
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.spacingXXS
                Text {
                    textFormat: Text.PlainText
                    objectName: "pageTitle"
                    text: container.title
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                    Accessible.description: container.subtitle
                    font: Theme.title
                    color: Theme.primaryText
                }
                Text {
                    textFormat: Text.PlainText
                    objectName: "pageSubtitle"
                    Layout.fillWidth: true
                    text: container.subtitle
                    font: Theme.body
                    color: Theme.secondaryText
                    elide: Text.ElideRight
                }
            }

            Badge {
                objectName: "progressBadge"
                visible: container.progress >= 0
                text: SettingsProgress.text(container.progress)
                symbol: SettingsProgress.symbol(container.progress)
                tooltip: SettingsProgress.tooltip(container.progress)
                tint: Theme.named(SettingsProgress.colorName(container.progress))
            }
        }

        Divider { Layout.fillWidth: true }

        ScrollView {
            id: scroll
            objectName: "pageScroll"
            Layout.fillWidth: true
            Layout.fillHeight: true
            contentWidth: availableWidth
            contentHeight: body.implicitHeight + Theme.spacingSection + Theme.spacingPage
            clip: true

            ColumnLayout {
                id: body
                x: Theme.spacingPage
                y: Theme.spacingSection
                width: scroll.availableWidth - 2 * Theme.spacingPage
                spacing: Theme.spacingPage
            }
        }
    }
}
