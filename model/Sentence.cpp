// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/Sentence.h"

QString Sentence::of(const QString& phrase)
{
    QString text = phrase.trimmed();
    if (text.isEmpty()) {
        return text;
    }
    text[0] = text[0].toUpper();
    if (!text.endsWith(u'.') && !text.endsWith(u'?') && !text.endsWith(u'!')) {
        text += u'.';
    }
    return text;
}
