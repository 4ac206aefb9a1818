<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AIConfigurationSection</name>
    <message>
        <source>AI Configuration (Optional)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enable AI Context</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Provider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Model</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>API Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Base URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Succeeded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AIConnectionTester</name>
    <message>
        <source>API key not configured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Azure endpoint not configured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid API key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not connect to local server</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AIProviders</name>
    <message>
        <source>Connected to OpenAI successfully</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected to Anthropic successfully</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected to Google AI successfully</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected to Azure OpenAI successfully</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>e.g., http://localhost:11434</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected to local AI server successfully</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AISettingsView</name>
    <message>
        <source>AI</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configure AI context per profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AI Providers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile Configuration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configured Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No profiles configured yet. Create profiles in the Profiles section.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not configured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>+ %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AI Context allows you to associate different AI models and API keys with each profile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>When you switch profiles, your AI context switches automatically - perfect for using different API keys for work and personal projects.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This feature will be available in a future update.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AboutSettingsView</name>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Learn more about Kivora</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>App Info</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version 1.0.0 (Build 1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kivora helps you manage multiple git identities across different projects and machines.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switch between git profiles instantly with a single click from your menu bar.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quick Links</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Website</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Documentation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Support</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Privacy Policy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Built with Qt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>© 2026 Kivora. All rights reserved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ActiveProfileCard</name>
    <message>
        <source>Active Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No profile selected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Appcast</name>
    <message>
        <source>The update feed is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update feed is not an RSS feed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update feed is not valid XML: %1 (line %2, column %3).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AppearanceSettingsView</name>
    <message>
        <source>Appearance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Customize how Kivora looks and feels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu Bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Icon Style</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compact Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show simplified menu bar with less detail</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu Bar Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Profile Email</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display email address in the menu bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show SSH Key Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Display SSH key information in the menu bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preview</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AutostartSwitch</name>
    <message>
        <source>Could not turn on start at login: %1 could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not turn off start at login: %1 could not be removed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CommandRunner</name>
    <message>
        <source>%1 could not be started</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 exited with status %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 crashed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CommitGuard</name>
    <message>
        <source>could not create %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>could not write the hooks in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>git could not set core.hooksPath; is ~/.gitconfig writable?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>git could not unset core.hooksPath; is ~/.gitconfig writable?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>your global core.hooksPath is %1; Kivora&apos;s guard would replace it, so it stays off (unset core.hooksPath first, or call kivora guard check from a pre-commit hook there).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CommitSigning</name>
    <message>
        <source>Could not change commit signing in the global git configuration.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not write the allowed signers file %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CopyKeySheet</name>
    <message>
        <source>SSH Key Generated!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your public key has been copied to clipboard.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste your key in GitHub Settings → SSH and GPG keys → New SSH key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open GitHub SSH Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Done</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeleteProfileDialog</name>
    <message>
        <source>This profile has an SSH key associated with it. Would you also like to delete the SSH key file?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The same key is also used by %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure you want to delete &quot;%1&quot;? This action cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Profile Only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Profile and SSH Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EnumTexts</name>
    <message>
        <source>System</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adapts to your system&apos;s light or dark mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Always uses light appearance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Always uses dark appearance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A simple colored dot in the menu bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full Logo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full Kivora logo icon in the menu bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text &apos;K&apos; displayed in the menu bar</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FeatureRow</name>
    <message>
        <source>Coming Soon</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GenerateKeySheet</name>
    <message>
        <source>Generate SSH Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filename (leave blank for id_ed25519)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Protect with passphrase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Passphrase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Generate</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GitConfigurationSection</name>
    <message>
        <source>Git Configuration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Git Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Git Email</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GuardCommand</name>
    <message>
        <source>The guard was already on: commits in a folder or repository with a rule must carry the rule&apos;s identity.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The guard is on: commits in a folder or repository with a rule must carry the rule&apos;s identity.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The guard is off; core.hooksPath is yours (%1) and stays.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The guard is off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The guard is on (core.hooksPath is %1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The guard is off: core.hooksPath names a folder of yours (%1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 runs its own hooks from %2 (core.hooksPath of the repository), so the guard does not check it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is checked while the guard is on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(none)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>this commit is refused: the rule &quot;%1&quot; gives this repository the identity of %2, %3, but git would record
  author:    %4
  committer: %5
See which identity git uses here, and why: kivora which
Commit anyway with: git commit --no-verify</source>
        <extracomment>The identities line up after &quot;author:&quot; and &quot;committer:&quot;.</extracomment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HelpText</name>
    <message>
        <source>kivora list [--json]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the profiles in order; the active one is marked with *.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  --json   print a JSON array of profiles (see docs/cli.md)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora current [--json]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the active profile, the global git name and e-mail, and the AI provider in force.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  --json   print a JSON object (see docs/cli.md)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora use PROFILE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make PROFILE the active identity: global git name, e-mail and SSH command, the AI environment file, and the saved choice.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora add NAME --git-name N --git-email E [--ssh-key PATH]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a profile at the end of the list. &quot;id_&quot; is removed from NAME and each word capitalised: id_work becomes Work.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  --git-name N    git user.name of the profile
  --git-email E   git user.email of the profile
  --ssh-key PATH  private key, for example ~/.ssh/id_ed25519
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora edit PROFILE [options]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change a profile. The changes take effect at its next activation.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  --name N          display name
  --git-name N      git user.name
  --git-email E     git user.email
  --ssh-key PATH    private key path (an empty PATH removes the key)
  --ai on|off       switch the profile&apos;s AI context on or off
  --ai-provider P   OpenAI, Anthropic, Google, &quot;Azure OpenAI&quot; or Local
  --ai-model M      model name (a new provider picks its first model)
  --ai-base-url U   base URL, Azure endpoint or local server address
  --ai-key-stdin    read the API key from standard input
  --signing-key KEY sign with KEY: an SSH key path (~/.ssh/id_work.pub) or an OpenPGP key id; none removes it
  --sign-commits on|off  sign commits and tags (on by default with a new key)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora remove PROFILE [--delete-key]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete a profile. Git settings stay as they are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  --delete-key   also delete the private key file and its .pub
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora export [FILE]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write every profile as a JSON array, to FILE or standard output. The export holds API keys: FILE is made readable by you only.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora import FILE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add the profiles of an exported JSON array, with new ids, display names rewritten as by add, and no AI settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>List the private keys in ~/.ssh that have their .pub beside them, sorted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora terminal PROFILE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a terminal window whose shell commits as PROFILE, without changing the global git settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  The emulator is $TERMINAL when set, else x-terminal-emulator, then the
  first installed of gnome-terminal, kgx, konsole, xfce4-terminal, kitty,
  alacritty, wezterm, foot and xterm.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora test-ai PROFILE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ask the profile&apos;s AI provider whether it accepts the key (one request to its model list) and print the answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora check-updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check the update feed now and say whether a newer version exists.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora rule add|remove PROFILE (--dir PATH | --remote PATTERN) | rule list [--json] | rule export [FILE] | rule import FILE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Let repositories under a folder, or with a remote whose URL matches a pattern, use PROFILE whatever the active profile is; remove such a rule; list the rules; write them as JSON (as rule list --json) or add those of such a file, matched to your profiles by id, then by name. Where several match, the later rule wins.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  --dir PATH         repositories under PATH (may start with ~)
  --remote PATTERN   repositories with a remote matching PATTERN, git&apos;s
                     pattern, e.g. git@github.com:acme/**
  --json             (list) print a JSON array (see docs/cli.md)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora which [DIR] [--json]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the identity git uses in DIR (default: the current folder) and why: a rule, the repository&apos;s own configuration, the environment, or the global setting.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora clone URL [DIR]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run git clone with the identity and SSH key that the remote rules give URL, from the first fetch on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora guard on|off|status [DIR]</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Refuse commits in repositories that a rule governs when git would record another identity than the rule&apos;s profile (on), stop (off), or say whether the guard is on and whether DIR bypasses it (status).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  The guard sets the global core.hooksPath to ~/.kivora/hooks, whose hooks run
  each repository&apos;s own hooks first. It stays off when core.hooksPath is
  already yours. git commit --no-verify skips it for one commit.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kivora autostart on|off|status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start the tray application at login (on), no longer (off), or say whether it does (status).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  The entry is $XDG_CONFIG_HOME/autostart/kivora.desktop (XDG_CONFIG_HOME
  defaults to ~/.config). One marked Hidden=true or
  X-GNOME-Autostart-enabled=false counts as off.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Usage: kivora [COMMAND] [ARGUMENTS]
Switch between git identities.

Without a command, kivora starts the tray application.

Commands:
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
PROFILE is a profile&apos;s id, its exact name, or the start of exactly one name (any case).

Options:
  -h, --help      show this help, or a command&apos;s with kivora COMMAND --help
  -v, --version   show the version

Exit status: 0 on success, 1 when the work failed, 2 for a usage error.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Usage: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Options:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HooksSettingsView</name>
    <message>
        <source>Hooks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Automate actions when switching profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Automation Hooks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile Activation Hooks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run scripts when a profile becomes active</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile Deactivation Hooks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run scripts when switching away from a profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Example Hooks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect VPN</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Automatically connect to work VPN when activating Work profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switch Slack Workspace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Slack workspace based on profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set AWS Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configure AWS credentials for different profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Environment Variables</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set custom environment variables per profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hooks allow you to run custom scripts automatically when activating or deactivating profiles.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This feature will be available in a future update.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>IdentityReport</name>
    <message>
        <source>%1 is not a folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>git could not be started</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InstanceChannel</name>
    <message>
        <source>there is no private folder for the socket: $XDG_RUNTIME_DIR is unset or not private, and ~/.kivora/run cannot be made</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>another instance is running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a JSON object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown command: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>JsonGuard</name>
    <message>
        <source>it has the key &quot;%1&quot; twice in one object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is not valid JSON</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it nests arrays and objects deeper than %1 levels</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KeyFileRemoval</name>
    <message>
        <source>%1 leads to no file, so nothing was deleted there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not inside ~/.ssh, so it was not deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a regular file, so it was not deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is one of ssh&apos;s own files, not a key, so it was not deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be deleted: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KeyScanSession</name>
    <message numerus="yes">
        <source>%n profile(s) created</source>
        <translation>
            <numerusform>%n profile created</numerusform>
            <numerusform>%n profiles created</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KeySheets</name>
    <message>
        <source>Generate SSH Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSH Key Generated</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KivoraApp</name>
    <message>
        <source>another instance holds the socket but does not answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot open its socket: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>only commands that change profiles are taken</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KivoraCli</name>
    <message numerus="yes">
        <source>Exported %n profile(s) to %1.</source>
        <translation>
            <numerusform>Exported %n profile to %1.</numerusform>
            <numerusform>Exported %n profiles to %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Imported %n profile(s).</source>
        <translation>
            <numerusform>Imported %n profile.</numerusform>
            <numerusform>Imported %n profiles.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %n rule(s) to %1.</source>
        <translation>
            <numerusform>Exported %n rule to %1.</numerusform>
            <numerusform>Exported %n rules to %1.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Imported %n rule(s).</source>
        <translation>
            <numerusform>Imported %n rule.</numerusform>
            <numerusform>Imported %n rules.</numerusform>
        </translation>
    </message>
    <message>
        <source>Not configured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no command &quot;%1&quot;; see kivora --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown option &quot;%1&quot;; see kivora --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;; see kivora --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; see kivora %2 --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is missing an argument; usage: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 takes no more arguments than: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; it was kept as %2 and new profiles were set up.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; the profiles shown are not saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the socket %1 belongs to a process of another user, not to your Kivora; it was left alone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>the running Kivora did not answer within %n second(s); the change was not made here, see kivora list for what it did.</source>
        <translation>
            <numerusform>the running Kivora did not answer within %n second; the change was not made here, see kivora list for what it did.</numerusform>
            <numerusform>the running Kivora did not answer within %n seconds; the change was not made here, see kivora list for what it did.</numerusform>
        </translation>
    </message>
    <message>
        <source>the running Kivora did not take the command: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot start %1: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the tray application is not installed; the commands work without it, see kivora --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No profiles yet. Add one with: kivora add NAME --git-name N --git-email E</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AI: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(not set)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile:    %1</source>
        <extracomment>Keep the values of kivora current in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Git name:   %1</source>
        <extracomment>Keep the values of kivora current in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Git email:  %1</source>
        <extracomment>Keep the values of kivora current in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSH key:    %1</source>
        <extracomment>Keep the values of kivora current in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AI:         %1</source>
        <extracomment>Keep the values of kivora current in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>git did not take the new identity (it reports %1); is git installed and ~/.gitconfig writable?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switched to %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the profile name is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>add needs a git name and e-mail: --git-name N --git-email E.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; nothing was added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Added profile %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--%1 cannot be empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--ai takes on or off, not &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an AI provider; choose one of %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--sign-commits takes on or off, not &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--signing-key needs a key, or none to remove it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--sign-commits on needs a signing key: add --signing-key KEY.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a readable SSH public key (nor the private half of one with its .pub beside it); nothing was saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the profile is gone; nothing was saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; nothing was saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved profile %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commits and tags are signed with %1 (%2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commits are not signed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The API key is empty, so its AI context stays off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is the active profile: run kivora use &quot;%1&quot; to apply the changes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; the profile and its key files were kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removed profile %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleted %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not every key file was there to delete.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot write %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read %1: %2; nothing was imported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a profile export (%2); nothing was imported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; nothing was imported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no terminal emulator could be started; set TERMINAL to one (see kivora terminal --help).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opened %1 for %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kivora %1 is up to date.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kivora %1 is available (you have %2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the update check failed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot remove %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>autostart takes on, off or status, not &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kivora starts at login.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kivora does not start at login.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the provider gave no answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>guard needs on, off or status; see kivora guard --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>guard takes on, off or status, not &quot;%1&quot;; see kivora guard --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No rules yet. Add one with: kivora rule add PROFILE --dir PATH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rule needs add, remove, list, export or import; see kivora rule --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rule takes add, remove, list, export or import, not &quot;%1&quot;; see kivora rule --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 takes one of --dir PATH or --remote PATTERN.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot name a folder in a rule.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the remote pattern must be one line of text.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has no such rule; see kivora rule list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repositories under %1 no longer use %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repositories with a remote matching %1 no longer use %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repositories under %1 use %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repositories with a remote matching %1 use %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Git name:     %1</source>
        <extracomment>Keep the values of kivora which in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Git email:    %1</source>
        <extracomment>Keep the values of kivora which in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSH command:  %1</source>
        <extracomment>Keep the values of kivora which in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile:      %1</source>
        <extracomment>Keep the values of kivora which in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rule: repositories under %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rule: a remote matches %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>repository: its own configuration sets the identity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>environment: GIT_AUTHOR_* or GIT_COMMITTER_* is set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>global: no rule applies here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Source:       %1</source>
        <extracomment>Keep the values of kivora which in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cloning as %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No remote rule matches %1; cloning with the global identity.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>git clone did not succeed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read %1: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a rule export; nothing was imported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n rule(s) named no profile of yours or no folder or pattern, and (was|were) left out.</source>
        <translation>
            <numerusform>%n rule named no profile of yours or no folder or pattern, and was left out.</numerusform>
            <numerusform>%n rules named no profile of yours or no folder or pattern, and were left out.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AI Context</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not configured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>iCloud Sync</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Local only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NoPageView</name>
    <message>
        <source>Select a settings page</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NotificationsSettingsView</name>
    <message>
        <source>Notifications</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Configure alerts and warnings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile Switch Notifications</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Get notified when you switch profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warning on Wrong Identity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alert when committing with a different identity than expected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Machine Change Detection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notify when you switch machines and profile might need updating</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notification features allow you to stay aware of your git identity across different contexts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These features are coming soon in a future update.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreferencesWindow</name>
    <message>
        <source>Kivora Preferences</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreviewView</name>
    <message>
        <source>Alex Sample</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Work</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileActions</name>
    <message>
        <source>%1 and %2</source>
        <extracomment>Joins names: &quot;A, B&quot; and &quot;C&quot;.</extracomment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileCodec</name>
    <message>
        <source>the file has no &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>profile %1 has no &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the AI settings of profile %1 has no &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; of the AI settings of profile %2 is not a string</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; of profile %2 is not a string</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;aiConfig&quot; of profile %1 is not an object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;isEnabled&quot; of the AI settings of profile %1 is not true or false</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; in the AI settings of profile %2 is not a known AI provider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;customHeaders&quot; of the AI settings of profile %1 is not an object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the header &quot;%1&quot; in the AI settings of profile %2 is not a string</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>profile %1 is not an object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; in profile %2 is not a UUID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the profiles are not a JSON array</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is not valid JSON</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is not a JSON object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;activeProfileID&quot; is not a string</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a UUID</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileEditor</name>
    <message>
        <source>New Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The connection cannot be tested here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the key could not be generated: </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileEditorSheet</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>e.g., Personal, Work, Freelance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileLock</name>
    <message>
        <source>%1 is not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>another Kivora process kept them locked for %n second(s)</source>
        <translation>
            <numerusform>another Kivora process kept them locked for %n second</numerusform>
            <numerusform>another Kivora process kept them locked for %n seconds</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ProfileManager</name>
    <message>
        <source>the profiles could not be saved to %1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>git did not take the new identity (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; was removed meanwhile; nothing was changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; the profiles shown are the last ones that could be read</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileResolver</name>
    <message>
        <source>the profile name is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 matches more than one profile: %2; use more of the name or the id.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no profile matches %1; there are no profiles yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no profile matches %1; the profiles are %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileRow</name>
    <message>
        <source>Open Terminal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Switched to %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileRuleList</name>
    <message>
        <source>Used in %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type a remote URL pattern, e.g. git@github.com:acme/**.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The rules could not be saved: no profile list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The rules could not be saved: %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileRulesSection</name>
    <message>
        <source>Used Automatically In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repositories in these folders, or with a remote matching these patterns, use this profile. Later rules win.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only when it is the active profile.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>e.g., git@github.com:acme/**</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remote pattern</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Remote</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Folder…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileSettingsRow</name>
    <message>
        <source>Edit profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active profile</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileStore</name>
    <message>
        <source>%1 does not exist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be read as profiles: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfileTransfer</name>
    <message>
        <source>the profiles could not be exported to %1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot read %1: %2; nothing was imported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a profile export (%2); nothing was imported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; nothing was imported</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProfilesSettingsView</name>
    <message numerus="yes">
        <source>%n profile(s)</source>
        <translation>
            <numerusform>%n profile</numerusform>
            <numerusform>%n profiles</numerusform>
        </translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manage your git identities</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan SSH Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No profiles yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add your first profile to get started</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProviderRow</name>
    <message>
        <source>Configured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not configured</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RegularFileReader</name>
    <message>
        <source>a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a FIFO</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a socket</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it does not exist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is %1, not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is larger than %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RelativeTime</name>
    <message numerus="yes">
        <source>%n year(s)</source>
        <translation>
            <numerusform>%n year</numerusform>
            <numerusform>%n years</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n month(s)</source>
        <translation>
            <numerusform>%n month</numerusform>
            <numerusform>%n months</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n week(s)</source>
        <translation>
            <numerusform>%n week</numerusform>
            <numerusform>%n weeks</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day(s)</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hour(s)</source>
        <translation>
            <numerusform>%n hour</numerusform>
            <numerusform>%n hours</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minute(s)</source>
        <translation>
            <numerusform>%n minute</numerusform>
            <numerusform>%n minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n second(s)</source>
        <translation>
            <numerusform>%n second</numerusform>
            <numerusform>%n seconds</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ReplaceFileDialog</name>
    <message>
        <source>A file named “%1” already exists.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to replace it? Its contents will be overwritten.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RuleStore</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a rule file (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no rule list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a rule without profile, kind or pattern</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RuleSync</name>
    <message>
        <source>cannot write %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot create %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SSHKeyGenerator</name>
    <message>
        <source>%1 already exists</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ssh-keygen exited with status %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to generate SSH key: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SSHKeySection</name>
    <message>
        <source>SSH Key (Optional)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>e.g., ~/.ssh/id_ed25519</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSH Key Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Generate</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SSHSettingsView</name>
    <message>
        <source>SSH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manage SSH keys and connections</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSH Key Management</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key Scanner</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Automatically detect SSH keys in ~/.ssh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key Generator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Generate new SSH keys directly from Kivora</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connection Testing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Test SSH connections for each key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Detected Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No SSH keys have been detected yet. Use the Profiles section to scan for keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSH key management allows you to scan, generate, and test SSH keys associated with your profiles.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This feature will be available in a future update.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ScanSSHKeysSheet</name>
    <message>
        <source>Scanning ~/.ssh folder...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSH Key %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Git Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Git Email</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Done</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsProgress</name>
    <message>
        <source>Configured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This feature is fully configured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Coming Soon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This feature is coming in a future update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Needs Setup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This feature requires some setup</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsSidebar</name>
    <message>
        <source>Search settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings pages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quick Actions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset All Settings</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsTab</name>
    <message>
        <source>Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AI</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hooks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sync</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Account</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Updates</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsTabRow</name>
    <message>
        <source>Favorite</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove from favorites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Export Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>JSON files (*.json)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Kivora Settings</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SetupBanner</name>
    <message>
        <source>Setup required - click to configure profiles</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ShellIntegration</name>
    <message>
        <source>%1 could not be written (%2)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SigningForm</name>
    <message>
        <source>Choose a signing key to sign commits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a readable SSH public key.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The profile could not be found.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SigningSection</name>
    <message>
        <source>Commit Signing (Optional)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signing Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>e.g., ~/.ssh/id_ed25519.pub or a GPG key ID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signing key choices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign Commits and Tags</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signed with the SSH key; git verifies it through Kivora&apos;s allowed signers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signed with the OpenPGP key through gpg.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SigningStore</name>
    <message>
        <source>%1 is not a signing settings file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not read %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not valid JSON.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not write %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SyncSettingsView</name>
    <message>
        <source>Sync</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep your profiles synchronized across devices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>iCloud Sync</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sync profiles automatically across your Macs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sync Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Local Only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last Sync</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Never</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>iCloud sync allows you to keep your profiles and settings synchronized across all your Macs signed into the same iCloud account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This feature will be available in a future update.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TerminalLauncher</name>
    <message>
        <source>Git profile: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  Name:  %1</source>
        <extracomment>Keep the values of the two lines in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  Email: %1</source>
        <extracomment>Keep the values of the two lines in one column.</extracomment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TrayIcon</name>
    <message>
        <source>Open Kivora</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start at Login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Updater</name>
    <message>
        <source>No update feed is configured.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update feed address is not valid: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update feed is too large.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update feed answered HTTP %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update feed did not answer within %1 seconds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not reach the update feed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The update feed lists no releases.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdaterView</name>
    <message>
        <source>Updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last checked: %1 ago</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdaterWindow</name>
    <message>
        <source>Software Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking for updates…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You&apos;re up to date!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A new version of Kivora is available!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Update Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kivora %1 is currently the newest version available.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kivora %1 is now available — you have %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UpdatesSettingsView</name>
    <message>
        <source>Daily</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Kivora up to date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Automatic Updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Automatically check for updates on app launch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check Frequency</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check Now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last Checked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 ago</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Sparkle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kivora uses Sparkle for updates. Sparkle is an open-source update framework for macOS apps.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Learn more about Sparkle</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
