import QtQuick
import Kivora

// The "SSH" page of the settings window.
SettingsContainer {
    title: "SSH"
    subtitle: "Manage SSH keys and connections"
    icon: "key.fill"
}
