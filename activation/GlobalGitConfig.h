// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

// The user's global git configuration file and the one include Kivora keeps at its end.
//
// git reads $XDG_CONFIG_HOME/git/config (default ~/.config/git/config) and then ~/.gitconfig,
// or only $GIT_CONFIG_GLOBAL when that is set; `git config --global` writes to ~/.gitconfig
// unless only the XDG file exists. The include goes into the file git reads last of those
// that exist, so nothing the user or an activation sets globally comes after it.
class GlobalGitConfig {
public:
    explicit GlobalGitConfig(const QString& home);

    QString path() const;

    // Appends the include of `target`, or moves it to the end when something was added after
    // it. Only Kivora's own three lines move; every other byte of the file stays as it is.
    // A symbolic link stays a link (its target is rewritten). False when the file could not be
    // written.
    bool keepIncludeLast(const QString& target) const;
    // Takes the include out again, if it is there.
    bool removeInclude(const QString& target) const;
    // Whether the include is in the file at all.
    bool hasInclude(const QString& target) const;

    // The lines Kivora writes, ending in a line end.
    static QByteArray includeBlock(const QString& target);
    static QByteArray marker();

    // `text` with the include taken out (nothing else changed), and whether it was there.
    static QByteArray withoutInclude(const QByteArray& text, const QString& target, bool* found);
    // `text` with the include at the end.
    static QByteArray withIncludeLast(const QByteArray& text, const QString& target);

private:
    QByteArray read() const;
    QString m_home;
};
