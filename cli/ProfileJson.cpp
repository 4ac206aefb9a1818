// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/ProfileJson.h"

#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

namespace {

Json signingObject(const GitProfile& profile, const QHash<QUuid, SigningSettings>& signing)
{
    const auto it = signing.constFind(profile.id);
    if (it == signing.constEnd()) {
        return nullptr;
    }
    Json object = Json::object();
    object["key"] = it->key.toStdString();
    object["format"] = SigningSettings::formatName(it->format).toStdString();
    object["signCommits"] = it->signCommits;
    return object;
}

Json profileObject(const GitProfile& profile, bool active,
                   const QHash<QUuid, SigningSettings>& signing)
{
    const AIConfig& ai = profile.aiConfig;
    Json aiObject = Json::object();
    aiObject["enabled"] = ai.isEnabled;
    aiObject["provider"] = ai.providerName().toStdString();
    aiObject["model"] = ai.model.toStdString();
    aiObject["configured"] = ai.isConfigured();

    Json object = Json::object();
    object["id"] = profile.idText().toStdString();
    object["name"] = profile.name.toStdString();
    object["gitName"] = profile.gitName.toStdString();
    object["gitEmail"] = profile.gitEmail.toStdString();
    object["sshKeyPath"] = profile.sshKeyPath.toStdString();
    object["active"] = active;
    object["ai"] = std::move(aiObject);
    object["signing"] = signingObject(profile, signing);
    return object;
}

QByteArray text(const Json& json)
{
    return QByteArray::fromStdString(json.dump(2, ' ', false, Json::error_handler_t::replace) +
                                     "\n");
}

} // namespace

QByteArray ProfileJson::list(const QList<GitProfile>& profiles, const std::optional<QUuid>& active,
                             const QHash<QUuid, SigningSettings>& signing)
{
    Json array = Json::array();
    for (const GitProfile& profile : profiles) {
        array.push_back(profileObject(profile, active == profile.id, signing));
    }
    return text(array);
}

QByteArray ProfileJson::current(const std::optional<GitProfile>& profile, bool active,
                                const QString& globalGitName, const QString& globalGitEmail,
                                bool needsProfileSetup,
                                const QHash<QUuid, SigningSettings>& signing)
{
    Json object = Json::object();
    object["profile"] = profile ? profileObject(*profile, active, signing) : Json(nullptr);
    object["globalGitName"] = globalGitName.toStdString();
    object["globalGitEmail"] = globalGitEmail.toStdString();
    object["needsProfileSetup"] = needsProfileSetup;
    return text(object);
}
