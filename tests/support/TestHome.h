// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <map>
#include <optional>

// A fresh, empty home folder for one test. While it lives, HOME and XDG_CONFIG_HOME point
// into it and git reads no system-wide or redirected configuration, so real programs (git,
// bash, ssh-keygen) work on it as they would on a user's machine.
class TestHome {
public:
    TestHome();
    ~TestHome();
    TestHome(const TestHome&) = delete;
    TestHome& operator=(const TestHome&) = delete;

    QString path() const { return m_dir.path(); }
    QString filePath(const QString& relative) const { return m_dir.filePath(relative); }
    QString configHome() const { return filePath(QStringLiteral(".config")); }

    // Writes a file under the home folder, creating folders on the way.
    void write(const QString& relative, const QByteArray& bytes) const;
    QByteArray read(const QString& relative) const;
    bool exists(const QString& relative) const;

    // Runs the real git with this home and returns its trimmed standard output.
    QString git(const QStringList& arguments, int* exitCode = nullptr) const;
    // `git config --global --get-all KEY`, untrimmed except for the final line end.
    QString gitConfig(const QString& key) const;

    // Changes an environment variable for the life of this object.
    void setEnv(const char* name, const std::optional<QByteArray>& value);

    // Every file under the home folder with its bytes, for "nothing changed" checks.
    std::map<QString, QByteArray> snapshot() const;

private:
    QTemporaryDir m_dir;
    std::map<QByteArray, std::optional<QByteArray>> m_saved;
};
