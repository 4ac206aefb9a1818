// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/Translations.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QTranslator>

QString Translations::fileFor(const QString& language)
{
    const QString path = QStringLiteral(":/i18n/kivora_%1.qm").arg(language);
    return QFile::exists(path) ? path : QString();
}

QStringList Translations::install()
{
    static QStringList installed;
    static bool done = false;
    if (done || !QCoreApplication::instance()) {
        return installed;
    }
    done = true;

    // The last translator installed is asked first: English goes in first, beneath the rest.
    QStringList languages{QStringLiteral("en")};
    for (const QString& name : QLocale().uiLanguages()) {
        // "de-DE" → "de"; the files are per language.
        const QString language = name.section(u'-', 0, 0).toLower();
        if (!language.isEmpty() && !languages.contains(language)) {
            languages << language;
        }
    }
    for (const QString& language : std::as_const(languages)) {
        const QString file = fileFor(language);
        if (file.isEmpty()) {
            continue;
        }
        auto* translator = new QTranslator(QCoreApplication::instance());
        if (translator->load(file)) {
            QCoreApplication::installTranslator(translator);
            installed.prepend(language);
        } else {
            delete translator;
        }
    }
    return installed;
}
