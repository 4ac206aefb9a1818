// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Kivora

// A small progress spinner: an open ring turning while it is shown.
Item {
    id: spinner

    property color color: Theme.secondaryText
    property int size: Theme.symbolL

    implicitWidth: size
    implicitHeight: size

    Canvas {
        id: ring
        anchors.fill: parent
        onPaint: {
            const context = getContext("2d")
            context.reset()
            const line = Math.max(1.5, spinner.size / 8)
            context.lineWidth = line
            context.lineCap = "round"
            context.strokeStyle = spinner.color
            context.beginPath()
            context.arc(width / 2, height / 2, (Math.min(width, height) - line) / 2, 0,
                        Math.PI * 1.5)
            context.stroke()
        }

        RotationAnimator on rotation {
            from: 0
            to: 360
            duration: 900
            loops: Animation.Infinite
            running: spinner.visible
        }
    }

    onColorChanged: ring.requestPaint()
}
