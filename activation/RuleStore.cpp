// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/RuleStore.h"

#include "model/AtomicFile.h"
#include "model/ProfileCodec.h"
#include "model/RegularFileReader.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

std::optional<IdentityRule::Kind> IdentityRule::kindFrom(const QString& text)
{
    if (text == QLatin1String("dir")) {
        return Kind::Dir;
    }
    if (text == QLatin1String("remote")) {
        return Kind::Remote;
    }
    return std::nullopt;
}

RuleStore::RuleStore(const QString& home) : m_path(home + QStringLiteral("/.kivora/rules.json")) {}

std::optional<IdentityRules> RuleStore::load(QString* error) const
{
    // Read like the profile file: a FIFO or device there is refused, never waited on.
    RegularFileReader reader;
    const auto bytes = reader.read(m_path);
    if (!bytes) {
        if (reader.failure() == RegularFileReader::Failure::Missing) {
            return IdentityRules{};
        }
        if (error) {
            *error = QCoreApplication::translate("RuleStore", "cannot read %1: %2")
                         .arg(m_path, reader.error());
        }
        return std::nullopt;
    }
    QString why;
    auto rules = decode(*bytes, &why);
    if (!rules && error) {
        *error =
            QCoreApplication::translate("RuleStore", "%1 is not a rule file (%2)").arg(m_path, why);
    }
    return rules;
}

bool RuleStore::save(const IdentityRules& rules) const
{
    return AtomicFile::makePrivateFolder(QFileInfo(m_path).path()) &&
           AtomicFile::write(m_path, encode(rules), AtomicFile::privateFile);
}

QByteArray RuleStore::encode(const IdentityRules& rules)
{
    QJsonArray array;
    for (const IdentityRule& rule : rules) {
        array.append(QJsonObject{{QStringLiteral("profile"), ProfileCodec::uuidText(rule.profile)},
                                 {QStringLiteral("kind"), IdentityRule::kindText(rule.kind)},
                                 {QStringLiteral("pattern"), rule.pattern}});
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("rules"), array}}).toJson();
}

std::optional<IdentityRules> RuleStore::decode(const QByteArray& bytes, QString* error)
{
    const auto failure = [error](const QString& why) {
        if (error) {
            *error = why;
        }
        return std::nullopt;
    };
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (!document.isObject() || !document.object().value(QStringLiteral("rules")).isArray()) {
        return failure(parseError.error != QJsonParseError::NoError
                           ? parseError.errorString()
                           : QCoreApplication::translate("RuleStore", "no rule list"));
    }
    IdentityRules rules;
    for (const QJsonValue& value : document.object().value(QStringLiteral("rules")).toArray()) {
        const QJsonObject object = value.toObject();
        const QUuid id = QUuid::fromString(object.value(QStringLiteral("profile")).toString());
        const auto kind = IdentityRule::kindFrom(object.value(QStringLiteral("kind")).toString());
        const QString pattern = object.value(QStringLiteral("pattern")).toString();
        if (id.isNull() || !kind || pattern.isEmpty()) {
            return failure(QCoreApplication::translate("RuleStore",
                                                       "a rule without profile, kind or pattern"));
        }
        rules.append(IdentityRule{id, *kind, pattern});
    }
    return rules;
}
