// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/ProfileResolver.h"

#include "model/ProfileCodec.h"

#include <QCoreApplication>

namespace {

QString quoted(const QString& text)
{
    QString shown = text;
    shown.replace(u'\n', QStringLiteral("\\n")).replace(u'\t', QStringLiteral("\\t"));
    return u'"' + shown + u'"';
}

} // namespace

std::optional<GitProfile> ProfileResolver::resolve(const QString& query, QString* error) const
{
    if (query.isEmpty()) {
        *error = QCoreApplication::translate("ProfileResolver", "the profile name is empty.");
        return std::nullopt;
    }
    if (const auto id = ProfileCodec::parseUuid(query)) {
        for (const GitProfile& profile : m_profiles) {
            if (profile.id == *id) {
                return profile;
            }
        }
    }

    QList<GitProfile> exact;
    QList<GitProfile> prefixed;
    for (const GitProfile& profile : m_profiles) {
        if (profile.name == query) {
            exact << profile;
        }
        if (profile.name.startsWith(query, Qt::CaseInsensitive)) {
            prefixed << profile;
        }
    }
    const QList<GitProfile>& candidates = exact.isEmpty() ? prefixed : exact;
    if (candidates.size() == 1) {
        return candidates.first();
    }
    if (candidates.size() > 1) {
        *error = QCoreApplication::translate("ProfileResolver",
                                             "%1 matches more than one profile: %2; use more of "
                                             "the name or the id.")
                     .arg(quoted(query), quotedList(candidates, true));
        return std::nullopt;
    }
    *error = m_profiles.isEmpty()
                 ? QCoreApplication::translate("ProfileResolver",
                                               "no profile matches %1; there are no profiles yet.")
                       .arg(quoted(query))
                 : QCoreApplication::translate("ProfileResolver",
                                               "no profile matches %1; the profiles are %2.")
                       .arg(quoted(query), quotedList(m_profiles, false));
    return std::nullopt;
}

QString ProfileResolver::quotedList(const QList<GitProfile>& profiles, bool withIds)
{
    QStringList names;
    for (const GitProfile& profile : profiles) {
        names << (withIds ? QStringLiteral("%1 (%2)").arg(quoted(profile.name), profile.idText())
                          : quoted(profile.name));
    }
    return names.join(QStringLiteral(", "));
}
