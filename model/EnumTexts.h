// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include <optional>

// The texts of a small closed enumeration, read from one table: the raw value kept in files,
// the name shown and a description. A table is a struct deriving from this template with a
// static array `entries` of `Entry` in the order pickers offer the values:
//
//     struct Styles : EnumTexts<Styles, Style, EnumText<Style>> {
//         static constexpr EnumText<Style> entries[] = {{Style::dot, "dot", "Dot", "…"}, …};
//     };
//
// An entry type may carry more facts than texts; it needs `value` and `raw`, and `display`
// and `description` for the functions that read them. Names and descriptions shown to people
// are marked QT_TRANSLATE_NOOP("EnumTexts", …) in the tables and translated when read; raw
// values never are.
template <typename Enum> struct EnumText {
    Enum value;
    const char* raw;
    const char* display;
    const char* description;
};

template <typename Table, typename Enum, typename Entry> struct EnumTexts {
    // Every value, in the order of the table.
    static QList<Enum> all()
    {
        QList<Enum> values;
        for (const Entry& e : Table::entries) {
            values << e.value;
        }
        return values;
    }

    static const Entry& entry(Enum value)
    {
        for (const Entry& e : Table::entries) {
            if (e.value == value) {
                return e;
            }
        }
        return Table::entries[0];
    }

    static QString rawValue(Enum value) { return QString::fromUtf8(entry(value).raw); }
    static QString displayName(Enum value)
    {
        return QCoreApplication::translate("EnumTexts", entry(value).display);
    }
    static QString description(Enum value)
    {
        return QCoreApplication::translate("EnumTexts", entry(value).description);
    }

    // Exact and case-sensitive: a raw value spelt differently names nothing.
    static std::optional<Enum> fromRawValue(const QString& raw)
    {
        for (const Entry& e : Table::entries) {
            if (raw == QString::fromUtf8(e.raw)) {
                return e.value;
            }
        }
        return std::nullopt;
    }

    // The choices of a picker, in order: maps with "rawValue", "displayName" and "description".
    static QVariantList choices()
    {
        QVariantList list;
        for (const Entry& e : Table::entries) {
            list.append(QVariantMap{{QStringLiteral("rawValue"), rawValue(e.value)},
                                    {QStringLiteral("displayName"), displayName(e.value)},
                                    {QStringLiteral("description"), description(e.value)}});
        }
        return list;
    }
};
