#include "cli/ProfileJson.h"

#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

namespace {

Json profileObject(const GitProfile& profile, bool active)
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
    return object;
}

QByteArray text(const Json& json)
{
    return QByteArray::fromStdString(json.dump(2, ' ', false, Json::error_handler_t::replace) +
                                     "\n");
}

} // namespace

QByteArray ProfileJson::list(const QList<GitProfile>& profiles, const std::optional<QUuid>& active)
{
    Json array = Json::array();
    for (const GitProfile& profile : profiles) {
        array.push_back(profileObject(profile, active == profile.id));
    }
    return text(array);
}

QByteArray ProfileJson::current(const std::optional<GitProfile>& profile, bool active,
                                const QString& globalGitName, const QString& globalGitEmail,
                                bool needsProfileSetup)
{
    Json object = Json::object();
    object["profile"] = profile ? profileObject(*profile, active) : Json(nullptr);
    object["globalGitName"] = globalGitName.toStdString();
    object["globalGitEmail"] = globalGitEmail.toStdString();
    object["needsProfileSetup"] = needsProfileSetup;
    return text(object);
}
