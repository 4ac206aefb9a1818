// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

// The application's translations, compiled into it from translations/kivora_<language>.ts.
// English is the language the texts are written in; its file only adds the plural forms
// ("1 profile", "2 profiles"), so it is always installed, beneath the user's language.
class Translations {
public:
    // Installs the translations for the user's languages once per process. Returns the
    // languages installed, English last.
    static QStringList install();

    // The compiled translation of one language ("en", "de"), or an empty path when there is
    // none.
    static QString fileFor(const QString& language);
};
