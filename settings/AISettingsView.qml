import QtQuick
import Kivora

// The "AI" page of the settings window.
SettingsContainer {
    title: "AI"
    subtitle: "Configure AI context per profile"
    icon: "sparkles"
}
