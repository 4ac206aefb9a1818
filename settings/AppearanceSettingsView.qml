import QtQuick
import Kivora

// The "Appearance" page of the settings window.
SettingsContainer {
    title: "Appearance"
    subtitle: "Customize how Kivora looks and feels"
    icon: "paintbrush.fill"
}
