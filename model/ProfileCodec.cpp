// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"

#include "model/JsonGuard.h"

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

using Json = nlohmann::ordered_json;

namespace {

// Raised while decoding; carries a sentence saying which value is wrong.
struct DecodeError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string utf8(const QString& text)
{
    return text.toStdString();
}

QString qtext(const std::string& text)
{
    return QString::fromStdString(text);
}

Json encodeConfig(const AIConfig& config)
{
    Json headers = Json::object();
    for (auto it = config.customHeaders.cbegin(); it != config.customHeaders.cend(); ++it) {
        headers[utf8(it.key())] = utf8(it.value());
    }
    Json json = Json::object();
    json["isEnabled"] = config.isEnabled;
    json["provider"] = utf8(AIProviders::rawValue(config.provider));
    json["model"] = utf8(config.model);
    json["apiKey"] = utf8(config.apiKey);
    json["baseURL"] = utf8(config.baseURL);
    json["customHeaders"] = std::move(headers);
    return json;
}

Json encodeProfile(const GitProfile& profile)
{
    Json json = Json::object();
    json["id"] = utf8(ProfileCodec::uuidText(profile.id));
    json["name"] = utf8(profile.name);
    json["gitName"] = utf8(profile.gitName);
    json["gitEmail"] = utf8(profile.gitEmail);
    json["sshKeyPath"] = utf8(profile.sshKeyPath);
    json["aiConfig"] = encodeConfig(profile.aiConfig);
    return json;
}

Json encodeProfiles(const QList<GitProfile>& profiles)
{
    Json array = Json::array();
    for (const GitProfile& profile : profiles) {
        array.push_back(encodeProfile(profile));
    }
    return array;
}

const Json& member(const Json& object, const char* key, const QString& where)
{
    const auto it = object.find(key);
    if (it == object.end()) {
        throw DecodeError(utf8(QStringLiteral("%1 has no \"%2\"").arg(where, QLatin1String(key))));
    }
    return *it;
}

QString stringMember(const Json& object, const char* key, const QString& where)
{
    const Json& value = member(object, key, where);
    if (!value.is_string()) {
        throw DecodeError(
            utf8(QStringLiteral("\"%1\" of %2 is not a string").arg(QLatin1String(key), where)));
    }
    return qtext(value.get<std::string>());
}

AIConfig decodeConfig(const Json& json, const QString& where)
{
    if (!json.is_object()) {
        throw DecodeError(utf8(QStringLiteral("\"aiConfig\" of %1 is not an object").arg(where)));
    }
    const QString inner = QStringLiteral("the AI settings of %1").arg(where);
    AIConfig config;
    const Json& enabled = member(json, "isEnabled", inner);
    if (!enabled.is_boolean()) {
        throw DecodeError(
            utf8(QStringLiteral("\"isEnabled\" of %1 is not true or false").arg(inner)));
    }
    config.isEnabled = enabled.get<bool>();
    const QString provider = stringMember(json, "provider", inner);
    const auto known = AIProviders::fromRawValue(provider);
    if (!known) {
        throw DecodeError(
            utf8(QStringLiteral("\"%1\" in %2 is not a known AI provider").arg(provider, inner)));
    }
    config.provider = *known;
    config.model = stringMember(json, "model", inner);
    config.apiKey = stringMember(json, "apiKey", inner);
    config.baseURL = stringMember(json, "baseURL", inner);
    const Json& headers = member(json, "customHeaders", inner);
    if (!headers.is_object()) {
        throw DecodeError(
            utf8(QStringLiteral("\"customHeaders\" of %1 is not an object").arg(inner)));
    }
    for (auto it = headers.begin(); it != headers.end(); ++it) {
        if (!it.value().is_string()) {
            throw DecodeError(utf8(QStringLiteral("the header \"%1\" in %2 is not a string")
                                       .arg(qtext(it.key()), inner)));
        }
        config.customHeaders.insert(qtext(it.key()), qtext(it.value().get<std::string>()));
    }
    return config;
}

GitProfile decodeProfile(const Json& json, qsizetype index)
{
    const QString where = QStringLiteral("profile %1").arg(index + 1);
    if (!json.is_object()) {
        throw DecodeError(utf8(QStringLiteral("%1 is not an object").arg(where)));
    }
    GitProfile profile;
    const QString idText = stringMember(json, "id", where);
    const auto id = ProfileCodec::parseUuid(idText);
    if (!id) {
        throw DecodeError(utf8(QStringLiteral("\"%1\" in %2 is not a UUID").arg(idText, where)));
    }
    profile.id = *id;
    profile.name = stringMember(json, "name", where);
    profile.gitName = stringMember(json, "gitName", where);
    profile.gitEmail = stringMember(json, "gitEmail", where);
    profile.sshKeyPath = stringMember(json, "sshKeyPath", where);
    profile.aiConfig = decodeConfig(member(json, "aiConfig", where), where);
    return profile;
}

QList<GitProfile> decodeProfiles(const Json& json)
{
    if (!json.is_array()) {
        throw DecodeError("the profiles are not a JSON array");
    }
    QList<GitProfile> profiles;
    profiles.reserve(static_cast<qsizetype>(json.size()));
    for (const Json& element : json) {
        profiles.append(decodeProfile(element, profiles.size()));
    }
    return profiles;
}

QByteArray dump(const Json& json, int indent)
{
    const std::string text = json.dump(indent, ' ', false, Json::error_handler_t::replace);
    return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

template <typename Decode>
auto decodeWith(const QByteArray& bytes, QString* error, Decode decode)
    -> std::optional<decltype(decode(Json()))>
{
    // Depth and duplicate keys are checked before any value is built: deep nesting would
    // exhaust the stack when the values are freed, and a key given twice is ambiguous.
    QString problem;
    if (!JsonGuard::check(bytes, &problem)) {
        if (error) {
            *error = QStringLiteral("it ") + problem;
        }
        return std::nullopt;
    }
    try {
        return decode(Json::parse(bytes.cbegin(), bytes.cend()));
    } catch (const DecodeError& failure) {
        if (error) {
            *error = qtext(failure.what());
        }
    } catch (const Json::parse_error&) {
        if (error) {
            *error = QStringLiteral("it is not valid JSON");
        }
    } catch (const Json::exception& failure) {
        if (error) {
            *error = qtext(failure.what());
        }
    }
    return std::nullopt;
}

} // namespace

QByteArray ProfileCodec::encodeStore(const StoredData& data)
{
    Json json = Json::object();
    json["profiles"] = encodeProfiles(data.profiles);
    if (data.activeProfileID) {
        json["activeProfileID"] = utf8(uuidText(*data.activeProfileID));
    }
    return dump(json, -1);
}

std::optional<StoredData> ProfileCodec::decodeStore(const QByteArray& bytes, QString* error)
{
    return decodeWith(bytes, error, [](const Json& json) {
        if (!json.is_object()) {
            throw DecodeError("the file is not a JSON object");
        }
        StoredData data;
        data.profiles = decodeProfiles(member(json, "profiles", QStringLiteral("the file")));
        const auto active = json.find("activeProfileID");
        if (active != json.end() && !active->is_null()) {
            if (!active->is_string()) {
                throw DecodeError("\"activeProfileID\" is not a string");
            }
            const QString text = qtext(active->get<std::string>());
            data.activeProfileID = parseUuid(text);
            if (!data.activeProfileID) {
                throw DecodeError(utf8(QStringLiteral("\"%1\" is not a UUID").arg(text)));
            }
        }
        return data;
    });
}

QByteArray ProfileCodec::encodeProfileArray(const QList<GitProfile>& profiles)
{
    return dump(encodeProfiles(profiles), 2);
}

std::optional<QList<GitProfile>> ProfileCodec::decodeProfileArray(const QByteArray& bytes,
                                                                  QString* error)
{
    return decodeWith(bytes, error, [](const Json& json) { return decodeProfiles(json); });
}

QString ProfileCodec::uuidText(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

std::optional<QUuid> ProfileCodec::parseUuid(const QString& text)
{
    if (text.size() != 36) {
        return std::nullopt;
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool hyphenPlace = i == 8 || i == 13 || i == 18 || i == 23;
        const bool hex =
            (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
        if (hyphenPlace ? c != u'-' : !hex) {
            return std::nullopt;
        }
    }
    return QUuid::fromString(text);
}
