// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/GitConfigText.h"

QString GitConfigText::quotedValue(const QString& value)
{
    QString text = QStringLiteral("\"");
    for (const QChar c : value) {
        if (c == u'\\' || c == u'"') {
            text += u'\\';
            text += c;
        } else if (c == u'\n') {
            text += QStringLiteral("\\n");
        } else if (c == u'\t') {
            text += QStringLiteral("\\t");
        } else {
            text += c;
        }
    }
    return text + u'"';
}

QString GitConfigText::subsection(const QString& text)
{
    QString escaped;
    for (const QChar c : text) {
        if (c == u'\\' || c == u'"') {
            escaped += u'\\';
        }
        escaped += c;
    }
    return escaped;
}

QString GitConfigText::literalPattern(const QString& path)
{
    QString escaped;
    for (const QChar c : path) {
        if (c == u'*' || c == u'?' || c == u'[' || c == u'\\') {
            escaped += u'\\';
        }
        escaped += c;
    }
    return escaped;
}
