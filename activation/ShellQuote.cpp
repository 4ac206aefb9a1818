// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ShellQuote.h"

bool ShellQuote::isPlain(const QString& text)
{
    // A ~ is plain inside a word, but at its start the shell would look up a user's home.
    if (text.startsWith(u'~')) {
        return false;
    }
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        const bool alnum =
            (u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9');
        if (!alnum && !QStringView(u"_./~+@%:,=-").contains(c)) {
            return false;
        }
    }
    return true;
}

QString ShellQuote::word(const QString& text)
{
    if (!text.isEmpty() && isPlain(text)) {
        return text;
    }
    QString quoted = text;
    quoted.replace(u'\'', QStringLiteral("'\\''"));
    return u'\'' + quoted + u'\'';
}

QString ShellQuote::insideDoubleQuotes(const QString& text)
{
    QString escaped;
    escaped.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'\\' || c == u'"' || c == u'$' || c == u'`') {
            escaped += u'\\';
        }
        escaped += c;
    }
    return escaped;
}
