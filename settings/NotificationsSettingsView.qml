import QtQuick
import Kivora

// The "Notifications" page of the settings window.
SettingsContainer {
    title: "Notifications"
    subtitle: "Configure alerts and warnings"
    icon: "bell.fill"
}
