// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Kivora

// One labelled row of a form card: the label at the leading edge, the control filling the rest.
RowLayout {
    id: formRow

    property string label
    default property alias control: holder.data

    Layout.fillWidth: true
    spacing: Theme.spacingL

    Text {
        textFormat: Text.PlainText
        Layout.preferredWidth: Theme.formLabelWidth
        Layout.alignment: Qt.AlignVCenter
        text: formRow.label
        font: Theme.body
        color: Theme.primaryText
        elide: Text.ElideRight
    }

    RowLayout {
        id: holder
        Layout.fillWidth: true
        spacing: Theme.spacingM
    }
}
