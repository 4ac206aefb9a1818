// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/IdentityReport.h"

#include "activation/RuleSync.h"
#include "model/ProfileCodec.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStringDecoder>

#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

namespace {

struct GitRun {
    int status = -1;
    QByteArray out;
};

GitRun git(const QString& dir, const QStringList& arguments)
{
    QProcess process;
    process.setWorkingDirectory(dir);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(QStringLiteral("/usr/bin/env"), QStringList{QStringLiteral("git")} + arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit) {
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput()};
}

QString utf8(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    return decoder.decode(bytes);
}

std::optional<GitProfile> profileWithId(const QList<GitProfile>& profiles, const QUuid& id)
{
    for (const GitProfile& profile : profiles) {
        if (profile.id == id) {
            return profile;
        }
    }
    return std::nullopt;
}

} // namespace

QString IdentityReport::sourceText(Source source)
{
    switch (source) {
    case Source::Rule:
        return QStringLiteral("rule");
    case Source::Repository:
        return QStringLiteral("repository");
    case Source::Environment:
        return QStringLiteral("environment");
    case Source::Global:
        break;
    }
    return QStringLiteral("global");
}

std::optional<IdentityReport> IdentityReport::probe(const QString& home, const QString& dir,
                                                    const QList<GitProfile>& profiles,
                                                    const std::optional<QUuid>& active,
                                                    const IdentityRules& rules, QString* error)
{
    if (!QFileInfo(dir).isDir()) {
        *error = QCoreApplication::translate("IdentityReport", "%1 is not a folder").arg(dir);
        return std::nullopt;
    }
    // "Name <email> time zone": the identity git would write as author here, environment
    // variables included.
    const GitRun ident = git(dir, {QStringLiteral("var"), QStringLiteral("GIT_AUTHOR_IDENT")});
    if (ident.status < 0) {
        *error = QCoreApplication::translate("IdentityReport", "git could not be started");
        return std::nullopt;
    }
    IdentityReport report;
    if (ident.status == 0) {
        const QString line = utf8(ident.out).trimmed();
        const qsizetype open = line.lastIndexOf(QStringLiteral(" <"));
        const qsizetype close = line.lastIndexOf(u'>');
        if (open >= 0 && close > open) {
            report.gitName = line.left(open);
            report.gitEmail = line.mid(open + 2, close - open - 2);
        }
    }

    // Every setting of the values involved, in the order git reads them (the last one counts):
    // "scope\0origin\0key\nvalue\0".
    const GitRun config = git(
        dir, {QStringLiteral("config"), QStringLiteral("--null"), QStringLiteral("--show-scope"),
              QStringLiteral("--show-origin"), QStringLiteral("--get-regexp"),
              QStringLiteral("^(user\\.name|user\\.email|core\\.sshcommand|kivora\\.rule)$")});
    QString nameScope, emailScope, emailOrigin, ruleValue;
    const QList<QByteArray> fields = config.out.split('\0');
    for (qsizetype i = 0; i + 2 < fields.size(); i += 3) {
        const QString scope = utf8(fields[i]);
        const QString origin = utf8(fields[i + 1]);
        const QByteArray entry = fields[i + 2];
        const qsizetype lineEnd = entry.indexOf('\n');
        const QByteArray key = (lineEnd < 0 ? entry : entry.left(lineEnd)).toLower();
        const QString value = lineEnd < 0 ? QString() : utf8(entry.mid(lineEnd + 1));
        if (key == "user.name") {
            nameScope = scope;
        } else if (key == "user.email") {
            emailScope = scope;
            emailOrigin = origin;
        } else if (key == "core.sshcommand") {
            report.sshCommand = value;
        } else if (key == "kivora.rule") {
            ruleValue = value;
        }
    }
    if (const QString fromEnv = qEnvironmentVariable("GIT_SSH_COMMAND"); !fromEnv.isEmpty()) {
        report.sshCommand = fromEnv;
    }

    const RuleSync sync(home);
    const bool fromEnvironment = [] {
        for (const char* name :
             {"GIT_AUTHOR_NAME", "GIT_AUTHOR_EMAIL", "GIT_COMMITTER_NAME", "GIT_COMMITTER_EMAIL"}) {
            if (qEnvironmentVariableIsSet(name)) {
                return true;
            }
        }
        return false;
    }();
    const auto isRepository = [](const QString& scope) {
        return scope == QLatin1String("local") || scope == QLatin1String("worktree");
    };
    bool ok = false;
    const qsizetype position = ruleValue.toLongLong(&ok);
    const bool ruled = ok && position >= 1 && position <= rules.size() &&
                       emailOrigin.startsWith(QStringLiteral("file:") + sync.folder() + u'/');
    if (fromEnvironment) {
        report.source = Source::Environment;
    } else if (isRepository(nameScope) || isRepository(emailScope)) {
        report.source = Source::Repository;
    } else if (ruled) {
        report.source = Source::Rule;
        report.rule = rules[position - 1];
        report.profile = profileWithId(profiles, report.rule->profile);
    }
    if (!report.profile) {
        // Whose identity it is: the active profile when it matches, otherwise the first that does.
        QList<GitProfile> candidates = profiles;
        std::stable_partition(candidates.begin(), candidates.end(),
                              [&](const GitProfile& p) { return active && p.id == *active; });
        for (const GitProfile& profile : candidates) {
            if (profile.gitName.trimmed() == report.gitName &&
                profile.gitEmail.trimmed() == report.gitEmail) {
                report.profile = profile;
                break;
            }
        }
    }
    return report;
}

QString IdentityReport::profileName(const IdentityRule& rule, const QList<GitProfile>& profiles)
{
    const auto profile = profileWithId(profiles, rule.profile);
    return profile ? profile->name : QString();
}

namespace {

Json ruleObject(const IdentityRule& rule, const QString& name)
{
    Json object = Json::object();
    object["profile"] = ProfileCodec::uuidText(rule.profile).toStdString();
    object["name"] = name.toStdString();
    object["kind"] = IdentityRule::kindText(rule.kind).toStdString();
    object["pattern"] = rule.pattern.toStdString();
    return object;
}

QByteArray text(const Json& json)
{
    return QByteArray::fromStdString(json.dump(2, ' ', false, Json::error_handler_t::replace) +
                                     '\n');
}

} // namespace

QByteArray IdentityReport::rulesJson(const IdentityRules& rules, const QList<GitProfile>& profiles)
{
    Json array = Json::array();
    for (const IdentityRule& rule : rules) {
        array.push_back(ruleObject(rule, profileName(rule, profiles)));
    }
    return text(array);
}

QByteArray IdentityReport::json() const
{
    Json object = Json::object();
    object["gitName"] = gitName.toStdString();
    object["gitEmail"] = gitEmail.toStdString();
    object["sshCommand"] = sshCommand ? Json(sshCommand->toStdString()) : Json(nullptr);
    if (profile) {
        Json who = Json::object();
        who["id"] = profile->idText().toStdString();
        who["name"] = profile->name.toStdString();
        object["profile"] = who;
    } else {
        object["profile"] = nullptr;
    }
    object["source"] = sourceText(source).toStdString();
    object["rule"] = rule ? ruleObject(*rule, profile ? profile->name : QString()) : Json(nullptr);
    return text(object);
}
