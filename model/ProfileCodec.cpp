// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"

#include "model/JsonGuard.h"

#include <QCoreApplication>

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

// Where a value sits: the file itself, a profile (counted from 1) or a profile's AI settings.
// Each message names its place within one whole sentence, so that a translation may order the
// sentence as its language needs.
struct Where {
    enum class Kind { File, Profile, AISettings };
    Kind kind = Kind::File;
    qsizetype profile = 0;

    QString number() const { return QString::number(profile); }
};

const Json& member(const Json& object, const char* key, const Where& where)
{
    const auto it = object.find(key);
    if (it == object.end()) {
        const QString name = QLatin1String(key);
        QString problem;
        switch (where.kind) {
        case Where::Kind::File:
            problem =
                QCoreApplication::translate("ProfileCodec", "the file has no \"%1\"").arg(name);
            break;
        case Where::Kind::Profile:
            problem = QCoreApplication::translate("ProfileCodec", "profile %1 has no \"%2\"")
                          .arg(where.number(), name);
            break;
        case Where::Kind::AISettings:
            problem = QCoreApplication::translate("ProfileCodec",
                                                  "the AI settings of profile %1 has no \"%2\"")
                          .arg(where.number(), name);
            break;
        }
        throw DecodeError(utf8(problem));
    }
    return *it;
}

QString stringMember(const Json& object, const char* key, const Where& where)
{
    const Json& value = member(object, key, where);
    if (!value.is_string()) {
        const QString name = QLatin1String(key);
        throw DecodeError(utf8(
            where.kind == Where::Kind::AISettings
                ? QCoreApplication::translate("ProfileCodec",
                                              "\"%1\" of the AI settings of profile %2 is not a "
                                              "string")
                      .arg(name, where.number())
                : QCoreApplication::translate("ProfileCodec",
                                              "\"%1\" of profile %2 is not a string")
                      .arg(name, where.number())));
    }
    return qtext(value.get<std::string>());
}

AIConfig decodeConfig(const Json& json, qsizetype index)
{
    const QString number = QString::number(index + 1);
    if (!json.is_object()) {
        throw DecodeError(utf8(QCoreApplication::translate(
                                   "ProfileCodec", "\"aiConfig\" of profile %1 is not an object")
                                   .arg(number)));
    }
    const Where inner{Where::Kind::AISettings, index + 1};
    AIConfig config;
    const Json& enabled = member(json, "isEnabled", inner);
    if (!enabled.is_boolean()) {
        throw DecodeError(
            utf8(QCoreApplication::translate("ProfileCodec", "\"isEnabled\" of the AI settings of "
                                                             "profile %1 is not true or false")
                     .arg(number)));
    }
    config.isEnabled = enabled.get<bool>();
    const QString provider = stringMember(json, "provider", inner);
    const auto known = AIProviders::fromRawValue(provider);
    if (!known) {
        throw DecodeError(
            utf8(QCoreApplication::translate("ProfileCodec", "\"%1\" in the AI settings of profile "
                                                             "%2 is not a known AI provider")
                     .arg(provider, number)));
    }
    config.provider = *known;
    config.model = stringMember(json, "model", inner);
    config.apiKey = stringMember(json, "apiKey", inner);
    config.baseURL = stringMember(json, "baseURL", inner);
    const Json& headers = member(json, "customHeaders", inner);
    if (!headers.is_object()) {
        throw DecodeError(
            utf8(QCoreApplication::translate("ProfileCodec", "\"customHeaders\" of the AI settings "
                                                             "of profile %1 is not an object")
                     .arg(number)));
    }
    for (auto it = headers.begin(); it != headers.end(); ++it) {
        if (!it.value().is_string()) {
            throw DecodeError(utf8(
                QCoreApplication::translate("ProfileCodec",
                                            "the header \"%1\" in the AI settings of profile %2 "
                                            "is not a string")
                    .arg(qtext(it.key()), number)));
        }
        config.customHeaders.insert(qtext(it.key()), qtext(it.value().get<std::string>()));
    }
    return config;
}

GitProfile decodeProfile(const Json& json, qsizetype index)
{
    const Where where{Where::Kind::Profile, index + 1};
    if (!json.is_object()) {
        throw DecodeError(
            utf8(QCoreApplication::translate("ProfileCodec", "profile %1 is not an object")
                     .arg(where.number())));
    }
    GitProfile profile;
    const QString idText = stringMember(json, "id", where);
    const auto id = ProfileCodec::parseUuid(idText);
    if (!id) {
        throw DecodeError(
            utf8(QCoreApplication::translate("ProfileCodec", "\"%1\" in profile %2 is not a UUID")
                     .arg(idText, where.number())));
    }
    profile.id = *id;
    profile.name = stringMember(json, "name", where);
    profile.gitName = stringMember(json, "gitName", where);
    profile.gitEmail = stringMember(json, "gitEmail", where);
    profile.sshKeyPath = stringMember(json, "sshKeyPath", where);
    profile.aiConfig = decodeConfig(member(json, "aiConfig", where), index);
    return profile;
}

QList<GitProfile> decodeProfiles(const Json& json)
{
    if (!json.is_array()) {
        throw DecodeError(
            utf8(QCoreApplication::translate("ProfileCodec", "the profiles are not a JSON array")));
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
            *error = problem;
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
            *error = QCoreApplication::translate("ProfileCodec", "it is not valid JSON");
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
            throw DecodeError(
                utf8(QCoreApplication::translate("ProfileCodec", "the file is not a JSON object")));
        }
        StoredData data;
        data.profiles = decodeProfiles(member(json, "profiles", Where{}));
        const auto active = json.find("activeProfileID");
        if (active != json.end() && !active->is_null()) {
            if (!active->is_string()) {
                throw DecodeError(utf8(QCoreApplication::translate(
                    "ProfileCodec", "\"activeProfileID\" is not a string")));
            }
            const QString text = qtext(active->get<std::string>());
            data.activeProfileID = parseUuid(text);
            if (!data.activeProfileID) {
                throw DecodeError(utf8(
                    QCoreApplication::translate("ProfileCodec", "\"%1\" is not a UUID").arg(text)));
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
