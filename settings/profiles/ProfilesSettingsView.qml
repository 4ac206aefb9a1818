import QtQuick
import Kivora

// The "Profiles" page of the settings window.
SettingsContainer {
    title: "Profiles"
    subtitle: "Manage your git identities"
    icon: "person.2.fill"
}
