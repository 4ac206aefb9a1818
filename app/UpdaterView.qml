// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// "Updates", a button to check at once, and when the last check happened.
Item {
    id: view

    // The relative time is redrawn now and then while the view is shown.
    property int tick: 0

    implicitWidth: column.implicitWidth + 2 * Theme.spacingSection
    implicitHeight: column.implicitHeight + 2 * Theme.spacingSection

    Timer {
        interval: 30000
        repeat: true
        running: view.visible
        onTriggered: view.tick++
    }

    ColumnLayout {
        id: column
        anchors.fill: parent
        anchors.margins: Theme.spacingSection
        spacing: Theme.spacingL

        Text {
            textFormat: Text.PlainText
            text: qsTr("Updates")
            font: Theme.headline
            color: Theme.primaryText
        }
        PushButton {
            objectName: "checkForUpdatesButton"
            text: qsTr("Check for Updates")
            onClicked: Updater.checkForUpdates()
        }
        Text {
            textFormat: Text.PlainText
            objectName: "lastCheckedText"
            visible: Updater.hasLastUpdateCheckDate
            text: view.tick >= 0 && Updater.hasLastUpdateCheckDate
                  ? qsTr("Last checked: %1 ago").arg(RelativeTime.describe(Updater.lastUpdateCheckDate))
                  : ""
            font: Theme.caption
            color: Theme.secondaryText
        }
        Item { Layout.fillHeight: true }
    }
}
