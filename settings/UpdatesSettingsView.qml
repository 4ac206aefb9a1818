import QtQuick
import Kivora

// The "Updates" page of the settings window.
SettingsContainer {
    title: "Updates"
    subtitle: "Keep Kivora up to date"
    icon: "arrow.down.circle.fill"
}
