// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/SigningSettings.h"

SigningSettings::Format SigningSettings::formatOf(const QString& key)
{
    const bool path = key.startsWith(u'~') || key.startsWith(u'/') ||
                      key.startsWith(QStringLiteral("./")) || key.endsWith(QStringLiteral(".pub"));
    return path || key.startsWith(QStringLiteral("key::")) ? Format::ssh : Format::openpgp;
}

QString SigningSettings::formatName(Format format)
{
    return format == Format::ssh ? QStringLiteral("ssh") : QStringLiteral("openpgp");
}

std::optional<SigningSettings::Format> SigningSettings::formatFromName(const QString& name)
{
    if (name == QStringLiteral("ssh")) {
        return Format::ssh;
    }
    if (name == QStringLiteral("openpgp")) {
        return Format::openpgp;
    }
    return std::nullopt;
}
