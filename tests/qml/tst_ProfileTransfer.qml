// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// "Import Profiles" of the settings window given a file that is not a plain export: nothing is
// imported and the window never waits on the file.
TestCase {
    name: "ProfileTransfer"

    readonly property QtObject transfer: ProfileTransfer

    function homeUrl(relative) {
        return "file://" + ProfilesFixture.homePath() + "/" + relative
    }

    function init() {
        ProfilesFixture.arrangeProfiles([{ name: "Keep", gitName: "K", gitEmail: "k@example.com" }], -1)
    }

    function test_fifoIsNotRead() {
        ProfilesFixture.removeHomeFolder("pipes")
        verify(ProfilesFixture.makeHomeFifo("pipes/export.json"))
        compare(transfer.importFrom(homeUrl("pipes/export.json")), 0)
        compare(ProfilesFixture.savedProfileNames(), ["Keep"])
    }

    function test_deviceIsNotRead() {
        compare(transfer.importFrom("file:///dev/zero"), 0)
        compare(ProfilesFixture.savedProfileNames(), ["Keep"])
    }

    function test_deepOrDuplicatedJsonImportsNothing() {
        ProfilesFixture.writeHomeFile("deep.json", "[".repeat(100000))
        compare(transfer.importFrom(homeUrl("deep.json")), 0)
        const profile = '{"id":"9F3C2A10-4B5D-4E6F-8A7B-1C2D3E4F5A6B","name":"A","name":"B",'
            + '"gitName":"g","gitEmail":"e","sshKeyPath":"","aiConfig":{"isEnabled":false,'
            + '"provider":"OpenAI","model":"m","apiKey":"","baseURL":"","customHeaders":{}}}'
        ProfilesFixture.writeHomeFile("twice.json", "[" + profile + "]")
        compare(transfer.importFrom(homeUrl("twice.json")), 0)
        // The same file without the second name imports.
        ProfilesFixture.writeHomeFile("once.json", "[" + profile.replace('"name":"B",', "") + "]")
        compare(transfer.importFrom(homeUrl("once.json")), 1)
        compare(ProfilesFixture.savedProfileNames(), ["Keep", "A"])
    }
}
