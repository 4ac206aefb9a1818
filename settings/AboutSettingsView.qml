import QtQuick
import Kivora

// The "About" page of the settings window.
SettingsContainer {
    title: "About"
    subtitle: "Learn more about Kivora"
    icon: "info.circle.fill"
}
