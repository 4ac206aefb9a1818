// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SymbolTable.h"

#include <array>

namespace {

constexpr std::array<SymbolTable::Entry, 46> entries{{
    {"antenna.radiowaves.left.and.right", "network-wireless-symbolic"},
    {"arrow.counterclockwise", "edit-undo-symbolic"},
    {"arrow.down.circle.fill", ""},
    {"arrow.triangle.2.circlepath", "emblem-synchronizing-symbolic"},
    {"arrow.up.forward.square", "send-to-symbolic"},
    {"bell.fill", "preferences-system-notifications-symbolic"},
    {"bolt.fill", ""},
    {"book", "accessories-dictionary-symbolic"},
    {"brain.head.profile", ""}, // the theme's nearest is a whole person
    {"checkmark", "object-select-symbolic"},
    {"checkmark.circle.fill", ""}, // the theme's emblem-ok is a bare tick, not a filled disc
    {"chevron.right", "go-next-symbolic"},
    {"clock.fill", ""}, // the theme's alarm clock has bells and feet
    {"cloud.fill", "weather-overcast-symbolic"},
    {"desktopcomputer", "computer-symbolic"},
    {"envelope.fill", "mail-unread-symbolic"},
    {"exclamationmark.triangle.fill", "dialog-warning-symbolic"},
    {"folder", "folder-symbolic"},
    {"g.circle", ""},
    {"gearshape", "emblem-system-symbolic"},
    {"globe", ""},
    {"hand.raised", ""},
    {"icloud.fill", ""},
    {"info.circle.fill", ""},
    {"key.fill", "dialog-password-symbolic"},
    {"key.horizontal.fill", "dialog-password-symbolic"},
    {"magnifyingglass", "system-search-symbolic"},
    {"paintbrush.fill", ""},
    {"pencil", "document-edit-symbolic"},
    {"person.2", "system-users-symbolic"},
    {"person.2.fill", "system-users-symbolic"},
    {"person.fill", "avatar-default-symbolic"},
    {"plus", "list-add-symbolic"},
    {"plus.circle.fill", ""},
    {"questionmark.circle", ""},
    {"sparkles", ""},
    {"square.and.arrow.down", "document-save-symbolic"},
    {"square.and.arrow.up", "document-send-symbolic"},
    {"star", "non-starred-symbolic"},
    {"star.fill", "starred-symbolic"},
    {"terminal", "utilities-terminal-symbolic"},
    {"terminal.fill", "utilities-terminal-symbolic"},
    {"trash", "user-trash-symbolic"},
    {"xmark", "window-close-symbolic"},
    {"xmark.circle.fill", ""},
    {"chevron.down", "go-down-symbolic"},
}};

const SymbolTable::Entry* find(const QString& symbol)
{
    for (const auto& entry : entries) {
        if (symbol == QLatin1String(entry.symbol)) {
            return &entry;
        }
    }
    return nullptr;
}

} // namespace

QString SymbolTable::themeIconName(const QString& symbol)
{
    const Entry* entry = find(symbol);
    return entry ? QString::fromLatin1(entry->themeIcon) : QString();
}

QString SymbolTable::fallbackPath(const QString& symbol)
{
    return contains(symbol) ? QStringLiteral(":/qt/qml/Kivora/assets/symbols/%1.svg").arg(symbol)
                            : QString();
}

bool SymbolTable::contains(const QString& symbol)
{
    return find(symbol) != nullptr;
}

QStringList SymbolTable::symbols()
{
    QStringList names;
    for (const auto& entry : entries) {
        names << QString::fromLatin1(entry.symbol);
    }
    return names;
}
