// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/HelpText.h"

namespace {

// The texts are translated where they are shown; the table holds the English source texts.
struct Entry {
    const char* synopsis;
    const char* summary;
    // The options, or a note on the command; empty when there is neither.
    const char* details;
};

const QList<std::pair<QString, Entry>>& entries()
{
    static const QList<std::pair<QString, Entry>> all{
        {QStringLiteral("list"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora list [--json]"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Show the profiles in order; the active one is marked with *."),
          QT_TRANSLATE_NOOP("HelpText",
                            "  --json   print a JSON array of profiles (see docs/cli.md)\n")}},
        {QStringLiteral("current"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora current [--json]"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Show the active profile, the global git name and e-mail, and the AI "
                            "provider in force."),
          QT_TRANSLATE_NOOP("HelpText", "  --json   print a JSON object (see docs/cli.md)\n")}},
        {QStringLiteral("use"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora use PROFILE"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Make PROFILE the active identity: global git name, e-mail and SSH "
                            "command, the AI environment file, and the saved choice."),
          ""}},
        {QStringLiteral("add"),
         {QT_TRANSLATE_NOOP("HelpText",
                            "kivora add NAME --git-name N --git-email E [--ssh-key PATH]"),
          QT_TRANSLATE_NOOP(
              "HelpText", "Add a profile at the end of the list. \"id_\" is removed from NAME and "
                          "each word capitalised: id_work becomes Work."),
          QT_TRANSLATE_NOOP("HelpText",
                            "  --git-name N    git user.name of the profile\n"
                            "  --git-email E   git user.email of the profile\n"
                            "  --ssh-key PATH  private key, for example ~/.ssh/id_ed25519\n")}},
        {QStringLiteral("edit"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora edit PROFILE [options]"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Change a profile. The changes take effect at its next activation."),
          QT_TRANSLATE_NOOP(
              "HelpText", "  --name N          display name\n"
                          "  --git-name N      git user.name\n"
                          "  --git-email E     git user.email\n"
                          "  --ssh-key PATH    private key path (an empty PATH removes the key)\n"
                          "  --ai on|off       switch the profile's AI context on or off\n"
                          "  --ai-provider P   OpenAI, Anthropic, Google, \"Azure OpenAI\" or "
                          "Local\n"
                          "  --ai-model M      model name (a new provider picks its first model)\n"
                          "  --ai-base-url U   base URL, Azure endpoint or local server address\n"
                          "  --ai-key-stdin    read the API key from standard input\n"
                          "  --signing-key KEY sign with KEY: an SSH key path (~/.ssh/id_work.pub) "
                          "or an OpenPGP key id; none removes it\n"
                          "  --sign-commits on|off  sign commits and tags (on by default with a "
                          "new key)\n")}},
        {QStringLiteral("remove"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora remove PROFILE [--delete-key]"),
          QT_TRANSLATE_NOOP("HelpText", "Delete a profile. Git settings stay as they are."),
          QT_TRANSLATE_NOOP("HelpText",
                            "  --delete-key   also delete the private key file and its .pub\n")}},
        {QStringLiteral("export"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora export [FILE]"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Write every profile as a JSON array, to FILE or standard output. The "
                            "export holds API keys: FILE is made readable by you only."),
          ""}},
        {QStringLiteral("import"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora import FILE"),
          QT_TRANSLATE_NOOP(
              "HelpText", "Add the profiles of an exported JSON array, with new ids, display names "
                          "rewritten as by add, and no AI settings."),
          ""}},
        {QStringLiteral("keys"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora keys"),
          QT_TRANSLATE_NOOP("HelpText",
                            "List the private keys in ~/.ssh that have their .pub beside them, "
                            "sorted."),
          ""}},
        {QStringLiteral("terminal"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora terminal PROFILE"),
          QT_TRANSLATE_NOOP(
              "HelpText", "Open a terminal window whose shell commits as PROFILE, without changing "
                          "the global git settings."),
          QT_TRANSLATE_NOOP(
              "HelpText",
              "  The emulator is $TERMINAL when set, else x-terminal-emulator, then the\n"
              "  first installed of gnome-terminal, kgx, konsole, xfce4-terminal, kitty,\n"
              "  alacritty, wezterm, foot and xterm.\n")}},
        {QStringLiteral("test-ai"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora test-ai PROFILE"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Ask the profile's AI provider whether it accepts the key (one request "
                            "to its model list) and print the answer."),
          ""}},
        {QStringLiteral("check-updates"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora check-updates"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Check the update feed now and say whether a newer version exists."),
          ""}},
        {QStringLiteral("rule"),
         {QT_TRANSLATE_NOOP("HelpText",
                            "kivora rule add|remove PROFILE (--dir PATH | --remote PATTERN) | rule "
                            "list [--json] | rule export [FILE] | rule import FILE"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Let repositories under a folder, or with a remote whose URL matches a "
                            "pattern, use PROFILE whatever the active profile is; remove such a "
                            "rule; list the rules; write them as JSON (as rule list --json) or add "
                            "those of such a file, matched to your profiles by id, then by name. "
                            "Where several match, the later rule wins."),
          QT_TRANSLATE_NOOP(
              "HelpText",
              "  --dir PATH         repositories under PATH (may start with ~)\n"
              "  --remote PATTERN   repositories with a remote matching PATTERN, git's\n"
              "                     pattern, e.g. git@github.com:acme/**\n"
              "  --json             (list) print a JSON array (see docs/cli.md)\n")}},
        {QStringLiteral("which"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora which [DIR] [--json]"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Show the identity git uses in DIR (default: the current folder) and "
                            "why: a rule, the repository's own configuration, the environment, or "
                            "the global setting."),
          QT_TRANSLATE_NOOP("HelpText", "  --json   print a JSON object (see docs/cli.md)\n")}},
        {QStringLiteral("clone"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora clone URL [DIR]"),
          QT_TRANSLATE_NOOP(
              "HelpText", "Run git clone with the identity and SSH key that the remote rules give "
                          "URL, from the first fetch on."),
          ""}},
        {QStringLiteral("guard"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora guard on|off|status [DIR]"),
          QT_TRANSLATE_NOOP(
              "HelpText",
              "Refuse commits in repositories that a rule governs when git would record "
              "another identity than the rule's profile (on), stop (off), or say "
              "whether the guard is on and whether DIR bypasses it (status)."),
          QT_TRANSLATE_NOOP(
              "HelpText",
              "  The guard sets the global core.hooksPath to ~/.kivora/hooks, whose hooks run\n"
              "  each repository's own hooks first. It stays off when core.hooksPath is\n"
              "  already yours. git commit --no-verify skips it for one commit.\n")}},
        {QStringLiteral("autostart"),
         {QT_TRANSLATE_NOOP("HelpText", "kivora autostart on|off|status"),
          QT_TRANSLATE_NOOP("HelpText",
                            "Start the tray application at login (on), no longer (off), or say "
                            "whether it does (status)."),
          QT_TRANSLATE_NOOP(
              "HelpText",
              "  The entry is $XDG_CONFIG_HOME/autostart/kivora.desktop (XDG_CONFIG_HOME\n"
              "  defaults to ~/.config). One marked Hidden=true or\n"
              "  X-GNOME-Autostart-enabled=false counts as off.\n")}},
    };
    return all;
}

} // namespace

QStringList HelpText::commands()
{
    QStringList names;
    for (const auto& [name, entry] : entries()) {
        names << name;
    }
    return names;
}

QString HelpText::overview()
{
    QString text = tr("Usage: kivora [COMMAND] [ARGUMENTS]\n"
                      "Switch between git identities.\n\n"
                      "Without a command, kivora starts the tray application.\n\n"
                      "Commands:\n");
    for (const auto& [name, entry] : entries()) {
        text += QStringLiteral("  %1\n      %2\n").arg(tr(entry.synopsis), tr(entry.summary));
    }
    text += tr("\nPROFILE is a profile's id, its exact name, or the start of exactly one name (any "
               "case).\n\n"
               "Options:\n"
               "  -h, --help      show this help, or a command's with kivora COMMAND --help\n"
               "  -v, --version   show the version\n\n"
               "Exit status: 0 on success, 1 when the work failed, 2 for a usage error.\n");
    return text;
}

QString HelpText::synopsis(const QString& command)
{
    for (const auto& [name, entry] : entries()) {
        if (name == command) {
            return tr(entry.synopsis);
        }
    }
    return {};
}

QString HelpText::forCommand(const QString& command)
{
    for (const auto& [name, entry] : entries()) {
        if (name != command) {
            continue;
        }
        QString text = tr("Usage: %1").arg(tr(entry.synopsis)) + u'\n' + tr(entry.summary) + u'\n';
        const QString details = tr(entry.details);
        if (qstrncmp(entry.details, "  -", 3) == 0) {
            text += u'\n' + tr("Options:") + u'\n' + details;
        } else if (!details.isEmpty()) {
            text += u'\n' + details;
        }
        return text;
    }
    return {};
}
