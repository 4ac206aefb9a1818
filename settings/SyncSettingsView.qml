import QtQuick
import Kivora

// The "Sync" page of the settings window.
SettingsContainer {
    title: "Sync"
    subtitle: "Keep your profiles synchronized across devices"
    icon: "arrow.triangle.2.circlepath"
}
