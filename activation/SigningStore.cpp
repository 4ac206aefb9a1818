// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/SigningStore.h"

#include "model/AtomicFile.h"
#include "model/ProfileCodec.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

// The file is small; anything far larger is not ours and is not read.
constexpr qint64 maximumSize = 4 * 1024 * 1024;

} // namespace

SigningStore::SigningStore(const QString& home)
    : m_path(home + QStringLiteral("/.kivora/signing.json"))
{
}

QHash<QUuid, SigningSettings> SigningStore::load(QString* error) const
{
    QHash<QUuid, SigningSettings> result;
    const QFileInfo info(m_path);
    if (!info.exists()) {
        return result;
    }
    const auto fail = [&](const QString& why) {
        if (error) {
            *error = why;
        }
        return QHash<QUuid, SigningSettings>();
    };
    if (!info.isFile() || info.size() > maximumSize) {
        return fail(
            QCoreApplication::translate("SigningStore", "%1 is not a signing settings file.")
                .arg(m_path));
    }
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        return fail(QCoreApplication::translate("SigningStore", "Could not read %1.").arg(m_path));
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parseError);
    if (parseError.error != QJsonParseError::NoError || !document.isObject()) {
        return fail(
            QCoreApplication::translate("SigningStore", "%1 is not valid JSON.").arg(m_path));
    }
    const QJsonObject object = document.object();
    for (auto it = object.begin(); it != object.end(); ++it) {
        const auto id = ProfileCodec::parseUuid(it.key());
        const QJsonObject entry = it.value().toObject();
        const auto format = SigningSettings::formatFromName(entry.value(u"format").toString());
        if (!id || !entry.value(u"key").isString() || !format ||
            !entry.value(u"signCommits").isBool()) {
            continue; // an entry we cannot use signs nothing; the others still count
        }
        result.insert(*id, SigningSettings{entry.value(u"key").toString(), *format,
                                           entry.value(u"signCommits").toBool()});
    }
    return result;
}

std::optional<SigningSettings> SigningStore::find(const QUuid& id) const
{
    const auto all = load();
    const auto it = all.constFind(id);
    if (it == all.constEnd()) {
        return std::nullopt;
    }
    return *it;
}

bool SigningStore::set(const QUuid& id, const std::optional<SigningSettings>& settings,
                       QString* error) const
{
    auto all = load();
    if (settings) {
        all.insert(id, *settings);
    } else {
        all.remove(id);
    }
    QJsonObject object;
    for (auto it = all.cbegin(); it != all.cend(); ++it) {
        object.insert(
            ProfileCodec::uuidText(it.key()),
            QJsonObject{{QStringLiteral("key"), it->key},
                        {QStringLiteral("format"), SigningSettings::formatName(it->format)},
                        {QStringLiteral("signCommits"), it->signCommits}});
    }
    const QString folder = QFileInfo(m_path).path();
    if (!AtomicFile::makePrivateFolder(folder) ||
        !AtomicFile::write(m_path, QJsonDocument(object).toJson(QJsonDocument::Indented),
                           AtomicFile::privateFile)) {
        if (error) {
            *error = QCoreApplication::translate("SigningStore", "Could not write %1.").arg(m_path);
        }
        return false;
    }
    return true;
}
