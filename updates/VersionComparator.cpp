// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/VersionComparator.h"

#include <QList>
#include <QStringView>

#include <algorithm>

namespace {

struct Part {
    bool isNumber = false;
    QStringView text; // for numbers: the digits without leading zeros
};

bool isAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

QList<Part> split(QStringView version)
{
    if (version.size() > 1 && (version[0] == u'v' || version[0] == u'V') &&
        isAsciiDigit(version[1])) {
        version = version.mid(1);
    }
    QList<Part> parts;
    qsizetype i = 0;
    while (i < version.size()) {
        const QChar c = version[i];
        qsizetype end = i + 1;
        if (isAsciiDigit(c)) {
            while (end < version.size() && isAsciiDigit(version[end])) {
                ++end;
            }
            qsizetype start = i;
            while (start + 1 < end && version[start] == u'0') {
                ++start;
            }
            parts.append({true, version.mid(start, end - start)});
        } else if (c.isLetter()) {
            while (end < version.size() && version[end].isLetter()) {
                ++end;
            }
            parts.append({false, version.mid(i, end - i)});
        }
        i = end;
    }
    return parts;
}

int sign(int value)
{
    return (value > 0) - (value < 0);
}

// Digit strings without leading zeros: the longer is the larger, else the first differing
// digit decides. No conversion, so no overflow on long build numbers.
int compareNumbers(QStringView a, QStringView b)
{
    if (a.size() != b.size()) {
        return a.size() < b.size() ? -1 : 1;
    }
    return sign(a.compare(b));
}

int comparePart(const Part& a, const Part& b)
{
    if (a.isNumber && b.isNumber) {
        return compareNumbers(a.text, b.text);
    }
    if (a.isNumber != b.isNumber) {
        return a.isNumber ? 1 : -1;
    }
    return sign(a.text.compare(b.text, Qt::CaseInsensitive));
}

// The version that has run out of parts, against the next part of the other one.
int compareMissing(const Part& present)
{
    if (!present.isNumber) {
        return 1; // the other goes on with a pre-release word: the shorter one is newer
    }
    return present.text == u"0" ? 0 : -1;
}

} // namespace

int VersionComparator::compare(const QString& a, const QString& b)
{
    const QList<Part> left = split(a);
    const QList<Part> right = split(b);
    const qsizetype count = std::max(left.size(), right.size());
    for (qsizetype i = 0; i < count; ++i) {
        int order = 0;
        if (i >= left.size()) {
            order = compareMissing(right[i]);
        } else if (i >= right.size()) {
            order = -compareMissing(left[i]);
        } else {
            order = comparePart(left[i], right[i]);
        }
        if (order != 0) {
            return order;
        }
    }
    return 0;
}
