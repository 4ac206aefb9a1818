// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQml.Models
import Kivora

// The sheets the editor shows over itself for a new key: the generation form while the
// editor's `showGenerateKeySheet` is on, and the confirmation after the public key was
// copied while `showCopyKeySheet` is on.
QtObject {
    id: sheets

    required property ProfileEditor form
    // The window they are modal for.
    property var owner

    // The sheets shown (null when closed).
    readonly property Item generateKeySheet: generateInstance.object
                                             ? (generateInstance.object as SheetWindow).sheet : null
    readonly property Item copyKeySheet: copyInstance.object
                                         ? (copyInstance.object as SheetWindow).sheet : null

    readonly property Instantiator generateInstance: Instantiator {
        active: sheets.form.showGenerateKeySheet
        delegate: SheetWindow {
            title: qsTr("Generate SSH Key")
            owner: sheets.owner
            defaultButton: generateSheet.defaultButton
            onDismissRequested: sheets.form.showGenerateKeySheet = false

            GenerateKeySheet {
                id: generateSheet
                objectName: "generateKeySheet"
                form: sheets.form
            }
        }
    }

    readonly property Instantiator copyInstance: Instantiator {
        active: sheets.form.showCopyKeySheet
        delegate: SheetWindow {
            title: qsTr("SSH Key Generated")
            owner: sheets.owner
            defaultButton: copySheet.defaultButton
            onDismissRequested: sheets.form.showCopyKeySheet = false

            CopyKeySheet {
                id: copySheet
                objectName: "copyKeySheet"
                onDone: sheets.form.showCopyKeySheet = false
            }
        }
    }
}
