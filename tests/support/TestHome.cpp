// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/TestHome.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <stdexcept>

TestHome::TestHome()
{
    if (!m_dir.isValid()) {
        throw std::runtime_error("cannot create a temporary home folder");
    }
    QDir(m_dir.path()).mkpath(QStringLiteral(".config"));
    setEnv("HOME", m_dir.path().toLocal8Bit());
    setEnv("XDG_CONFIG_HOME", configHome().toLocal8Bit());
    setEnv("GIT_CONFIG_GLOBAL", std::nullopt);
    setEnv("GIT_CONFIG_SYSTEM", std::nullopt);
    setEnv("GIT_CONFIG_NOSYSTEM", QByteArrayLiteral("1"));
    // The application's socket then lives in this home folder too (~/.kivora/run).
    setEnv("XDG_RUNTIME_DIR", std::nullopt);
    for (const char* name : {"GIT_AUTHOR_NAME", "GIT_AUTHOR_EMAIL", "GIT_COMMITTER_NAME",
                             "GIT_COMMITTER_EMAIL", "GIT_SSH_COMMAND", "OPENAI_API_KEY",
                             "ANTHROPIC_API_KEY", "GOOGLE_AI_API_KEY", "OLLAMA_BASE_URL"}) {
        setEnv(name, std::nullopt);
    }
}

TestHome::~TestHome()
{
    for (const auto& [name, value] : m_saved) {
        if (value) {
            qputenv(name.constData(), *value);
        } else {
            qunsetenv(name.constData());
        }
    }
}

void TestHome::setEnv(const char* name, const std::optional<QByteArray>& value)
{
    const QByteArray key(name);
    if (m_saved.find(key) == m_saved.end()) {
        m_saved[key] = qEnvironmentVariableIsSet(name) ? std::optional<QByteArray>(qgetenv(name))
                                                       : std::nullopt;
    }
    if (value) {
        qputenv(name, *value);
    } else {
        qunsetenv(name);
    }
}

void TestHome::write(const QString& relative, const QByteArray& bytes) const
{
    const QString path = filePath(relative);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size()) {
        throw std::runtime_error("cannot write a test file");
    }
}

QByteArray TestHome::read(const QString& relative) const
{
    QFile file(filePath(relative));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll();
}

bool TestHome::exists(const QString& relative) const
{
    return QFileInfo::exists(filePath(relative));
}

QString TestHome::git(const QStringList& arguments, int* exitCode) const
{
    QProcess process;
    process.start(QStringLiteral("git"), arguments);
    process.waitForFinished(-1);
    if (exitCode) {
        *exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QString TestHome::gitConfig(const QString& key) const
{
    QProcess process;
    process.start(QStringLiteral("git"), {QStringLiteral("config"), QStringLiteral("--global"),
                                          QStringLiteral("--get"), key});
    process.waitForFinished(-1);
    QString out = QString::fromUtf8(process.readAllStandardOutput());
    if (out.endsWith(u'\n')) {
        out.chop(1);
    }
    return out;
}

std::map<QString, QByteArray> TestHome::snapshot() const
{
    std::map<QString, QByteArray> files;
    QDirIterator it(path(), QDir::Files | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        QFile f(file);
        f.open(QIODevice::ReadOnly);
        files[QDir(path()).relativeFilePath(file)] = f.readAll();
    }
    return files;
}
