// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/AIProvider.h"

#include <QMap>
#include <QMetaType>
#include <QString>

// The AI provider settings a profile carries.
struct AIConfig {
    Q_GADGET
    Q_PROPERTY(bool isEnabled MEMBER isEnabled)
    Q_PROPERTY(QString provider READ providerName)
    Q_PROPERTY(QString model MEMBER model)
    Q_PROPERTY(QString apiKey MEMBER apiKey)
    Q_PROPERTY(QString baseURL MEMBER baseURL)
    Q_PROPERTY(bool isConfigured READ isConfigured)

public:
    bool isEnabled = false;
    AIProvider provider = AIProvider::OpenAI;
    QString model = QStringLiteral("gpt-4o");
    QString apiKey;
    QString baseURL;
    QMap<QString, QString> customHeaders;

    // A key is all a provider needs; a local server needs none. Whether the
    // configuration is enabled does not matter here.
    bool isConfigured() const
    {
        return !apiKey.isEmpty() || !AIProviders::facts(provider).needsKey;
    }

    QString providerName() const { return AIProviders::rawValue(provider); }

    static AIConfig empty() { return {}; }

    friend bool operator==(const AIConfig&, const AIConfig&) = default;
};

Q_DECLARE_METATYPE(AIConfig)
