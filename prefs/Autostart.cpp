// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "prefs/Autostart.h"

#include "model/AtomicFile.h"
#include "model/HomePath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

QString Autostart::path()
{
    QString configHome = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (configHome.isEmpty() || !QDir::isAbsolutePath(configHome)) {
        configHome = HomePath::home() + QStringLiteral("/.config");
    }
    return QDir::cleanPath(configHome + QStringLiteral("/autostart/kivora.desktop"));
}

QByteArray Autostart::entry()
{
    return QByteArrayLiteral("[Desktop Entry]\n"
                             "Type=Application\n"
                             "Name=Kivora\n"
                             "Comment=Switch between git identities from the tray\n"
                             "Exec=kivora\n"
                             "Icon=kivora\n"
                             "X-GNOME-Autostart-enabled=true\n");
}

bool Autostart::entryEnabled(const QByteArray& contents)
{
    // Only the keys of the main group count; other groups (actions) may repeat key names.
    bool inMainGroup = false;
    for (const QByteArray& raw : contents.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.isEmpty() || line.startsWith('#')) {
            continue;
        }
        if (line.startsWith('[')) {
            inMainGroup = line == "[Desktop Entry]";
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (!inMainGroup || equals <= 0) {
            continue;
        }
        const QByteArray key = line.left(equals).trimmed();
        const QByteArray value = line.mid(equals + 1).trimmed();
        if (key == "Hidden" && value == "true") {
            return false;
        }
        if (key == "X-GNOME-Autostart-enabled" && value == "false") {
            return false;
        }
    }
    return true;
}

bool Autostart::isEnabled()
{
    QFile file(path());
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    return entryEnabled(file.readAll());
}

bool Autostart::setEnabled(bool enabled)
{
    const QString file = path();
    const QFileInfo info(file);
    // A link (some users link a system desktop file here) is replaced or removed itself,
    // never written through.
    const bool present = info.exists() || info.isSymLink();
    if (!enabled) {
        return !present || QFile::remove(file);
    }
    if (info.isSymLink() && !QFile::remove(file)) {
        return false;
    }
    if (!QDir().mkpath(info.path())) {
        return false;
    }
    return AtomicFile::write(file, entry());
}
