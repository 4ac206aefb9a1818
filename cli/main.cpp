// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/KivoraCli.h"
#include "model/Translations.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Kivora"));
    QCoreApplication::setApplicationName(QStringLiteral("Kivora"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KIVORA_VERSION));
    Translations::install();
    QTextStream out(stdout);
    QTextStream err(stderr);
    QTextStream in(stdin);
    const int status = KivoraCli(QCoreApplication::arguments(), out, err, in).run();
    out.flush();
    err.flush();
    return status;
}
