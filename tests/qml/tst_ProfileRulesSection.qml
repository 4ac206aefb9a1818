// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Kivora
import KivoraTest

// "Used Automatically In", the profile editor's last section, and the rules line of the
// profiles page, over the real rule file and generated git configuration in the test's home.
Item {
    width: 500
    height: 680

    Item {
        id: stage
        anchors.fill: parent
    }

    readonly property QtObject actions: ProfileActions

    TestCase {
        id: testCase
        name: "ProfileRulesSection"
        when: windowShown

        Component {
            id: editorComponent
            ProfileEditorSheet {
                objectName: "editor"
                anchors.fill: parent
            }
        }

        Component {
            id: rowComponent
            ProfileSettingsRow {
                width: 460
            }
        }

        Component {
            id: directList
            ProfileRuleList {
                manager: ProfileManager
            }
        }

        function init() {
            ProfilesFixture.removeHomeFolder(".kivora")
            ProfilesFixture.arrangeProfiles([{ name: "Work", gitName: "Ada", gitEmail: "ada@corp.example",
                                               sshKeyPath: "~/.ssh/id_work" },
                                             { name: "Home", gitName: "Ada", gitEmail: "ada@home.example" }],
                                            1)
        }

        function makeEditor(profile) {
            const editor = createTemporaryObject(editorComponent, stage, { profile: profile })
            editor.saved.connect(p => actions.updateProfile(p) || actions.addProfile(p))
            return editor
        }

        function reveal(editor, item) {
            waitForItemPolished(findChild(editor, "formColumn"))
            tryVerify(() => {
                editor.reveal(item)
                const view = findChild(editor, "formScroll")
                const top = item.mapToItem(view, 0, 0).y
                return top >= 0 && top + item.height <= view.height
            })
            waitForRendering(editor)
        }

        function typeInto(item, text) {
            item.forceActiveFocus()
            item.selectAll()
            keyClick(Qt.Key_Delete)
            for (const character of text) {
                keyClick(character)
            }
        }

        function test_sectionComesLast() {
            const editor = makeEditor(actions.profileAt(0))
            const column = findChild(editor, "formColumn")
            const section = findChild(editor, "rulesSection")
            compare(section.title, "Used Automatically In")
            let rulesAt = -1
            let lastSectionAt = -1
            for (let i = 0; i < column.children.length; ++i) {
                const child = column.children[i]
                if (child === section) {
                    rulesAt = i
                } else if (child.title !== undefined && child.title.length > 0) {
                    lastSectionAt = i
                }
            }
            verify(rulesAt > lastSectionAt, "after the other sections")
            verify(findChild(editor, "noRulesText").visible)
        }

        function test_addRemoteAndFolderThenSave() {
            const editor = makeEditor(actions.profileAt(0))
            const field = findChild(editor, "remotePatternField")
            reveal(editor, field)
            typeInto(field, "git@github.com:acme/**")
            mouseClick(findChild(editor, "addRemoteButton"))
            const section = findChild(editor, "rulesSection")
            // The folder chooser hands over a file: URL.
            ProfilesFixture.makeHomeFolder("work")
            verify(section.ruleList.addFolder("file://" + ProfilesFixture.homePath() + "/work"))
            compare(section.ruleList.rules.length, 2)
            compare(section.ruleList.rules[0].shown, "git@github.com:acme/**")
            compare(section.ruleList.rules[1].shown, "~/work")
            compare(field.text, "")
            verify(!findChild(editor, "noRulesText").visible)
            // Nothing is written before Save.
            verify(!ProfilesFixture.homeFileExists(".kivora/rules.json"))

            mouseClick(findChild(editor, "saveButton"))
            const stored = JSON.parse(ProfilesFixture.homeFileText(".kivora/rules.json")).rules
            compare(stored.length, 2)
            compare(stored[0].kind, "remote")
            compare(stored[0].pattern, "git@github.com:acme/**")
            compare(stored[1].kind, "dir")
            compare(stored[1].pattern, ProfilesFixture.homePath() + "/work")
            compare(stored[0].profile, actions.profileAt(0).id)
            const generated = ProfilesFixture.homeFileText(".kivora/git/rules.gitconfig")
            verify(generated.indexOf("[includeIf \"hasconfig:remote.*.url:git@github.com:acme/**\"]") >= 0)
            verify(generated.indexOf("[includeIf \"gitdir:" + ProfilesFixture.homePath() + "/work/\"]") >= 0)
            verify(ProfilesFixture.homeFileText(".gitconfig").indexOf(".kivora/git/rules.gitconfig") >= 0)
        }

        function test_removeAndCancelKeepsTheFile() {
            const list = createTemporaryObject(directList, stage, { profileId: actions.profileAt(0).id })
            verify(list.addRemote("https://github.com/acme/**"))
            const before = ProfilesFixture.homeFileText(".kivora/rules.json")
            const editor = makeEditor(actions.profileAt(0))
            const row = findChild(editor, "ruleRow0")
            verify(row !== null)
            compare(findChild(row, "ruleText").text, "https://github.com/acme/**")
            const remove = findChild(row, "removeRuleButton")
            reveal(editor, remove)
            mouseClick(remove)
            tryCompare(findChild(editor, "rulesSection").ruleList.rules, "length", 0)
            editor.cancel()
            compare(ProfilesFixture.homeFileText(".kivora/rules.json"), before)

            const again = makeEditor(actions.profileAt(0))
            const removeAgain = findChild(findChild(again, "ruleRow0"), "removeRuleButton")
            reveal(again, removeAgain)
            mouseClick(removeAgain)
            mouseClick(findChild(again, "saveButton"))
            compare(JSON.parse(ProfilesFixture.homeFileText(".kivora/rules.json")).rules.length, 0)
            verify(!ProfilesFixture.homeFileExists(".kivora/git/rules.gitconfig"))
        }

        function test_newProfileGetsItsRulesOnSave() {
            const editor = makeEditor(actions.profileTemplate())
            editor.form.name = "Client"
            editor.form.gitName = "Ada"
            editor.form.gitEmail = "ada@client.example"
            const section = findChild(editor, "rulesSection")
            verify(section.ruleList.addRemote("https://git.client.example/**"))
            mouseClick(findChild(editor, "saveButton"))
            const stored = JSON.parse(ProfilesFixture.homeFileText(".kivora/rules.json")).rules
            compare(stored.length, 1)
            compare(stored[0].profile, actions.profileTemplate().id)
        }

        function test_emptyRemoteIsRefusedWithAReason() {
            const editor = makeEditor(actions.profileAt(0))
            const section = findChild(editor, "rulesSection")
            verify(!findChild(editor, "addRemoteButton").enabled)
            verify(!section.ruleList.addRemote("   "))
            verify(findChild(editor, "rulesErrorText").visible)
            verify(findChild(editor, "rulesErrorText").text.length > 0)
        }

        function test_pageRowShowsTheRules() {
            const row = createTemporaryObject(rowComponent, stage, { profile: actions.profileAt(0) })
            verify(!findChild(row, "rulesText").visible)
            // The command line writes the rule file; the row follows it.
            const list = createTemporaryObject(directList, stage, { profileId: actions.profileAt(0).id })
            ProfilesFixture.makeHomeFolder("work")
            verify(list.addFolderPath(ProfilesFixture.homePath() + "/work"))
            verify(list.addRemote("git@github.com:acme/**"))
            tryCompare(findChild(row, "rulesText"), "text", "Used in ~/work, git@github.com:acme/**")
            verify(findChild(row, "rulesText").visible)
            compare(findChild(row, "identityText").text, "Ada · ada@corp.example")
        }
    }
}
