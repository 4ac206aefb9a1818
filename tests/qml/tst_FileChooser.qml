// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// The file an export writes: ".json" is added to a name without an extension, whether the
// dialog returned a file: address (the desktop's chooser) or a bare path (Qt's dialog).
TestCase {
    name: "FileChooser"

    FileChooser {
        id: chooser
    }

    function test_suffix_data() {
        return [
            { tag: "no extension", chosen: "file:///home/ann/profiles",
              written: "file:///home/ann/profiles.json" },
            { tag: "bare path", chosen: "/home/ann/profiles",
              written: "file:///home/ann/profiles.json" },
            { tag: "json kept", chosen: "file:///home/ann/profiles.json",
              written: "file:///home/ann/profiles.json" },
            { tag: "other extension kept", chosen: "file:///home/ann/profiles.backup",
              written: "file:///home/ann/profiles.backup" },
            { tag: "hidden file", chosen: "file:///home/ann/.profiles",
              written: "file:///home/ann/.profiles.json" },
            { tag: "dot in folder only", chosen: "file:///home/ann/my.dir/profiles",
              written: "file:///home/ann/my.dir/profiles.json" },
        ]
    }

    function test_suffix(data) {
        compare(String(chooser.addingDefaultSuffix(data.chosen, "json")), data.written)
    }

    function test_existsAndName() {
        const home = ProfilesFixture.homePath()
        verify(chooser.fileExists("file://" + home))
        verify(chooser.fileExists(home))
        verify(!chooser.fileExists("file://" + home + "/no-such-file.json"))
        compare(chooser.nameOf("file:///home/ann/profiles.json"), "profiles.json")
        compare(chooser.nameOf("/home/ann/profiles.json"), "profiles.json")
    }
}
