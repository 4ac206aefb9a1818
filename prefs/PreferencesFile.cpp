// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "prefs/PreferencesFile.h"

#include "model/HomePath.h"

#include <QDir>

QString PreferencesFile::path()
{
    QString configHome = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (configHome.isEmpty() || !QDir::isAbsolutePath(configHome)) {
        configHome = HomePath::home() + QStringLiteral("/.config");
    }
    return QDir::cleanPath(configHome + QStringLiteral("/Kivora/Kivora.conf"));
}
