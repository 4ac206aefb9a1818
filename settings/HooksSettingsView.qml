import QtQuick
import Kivora

// The "Hooks" page of the settings window.
SettingsContainer {
    title: "Hooks"
    subtitle: "Automate actions when switching profiles"
    icon: "terminal.fill"
}
