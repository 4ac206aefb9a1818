// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/AIProviderCatalogue.h"

#include "model/AIProvider.h"

#include <QVariantMap>

AIProviderCatalogue::AIProviderCatalogue(QObject* parent) : QObject(parent) {}

QVariantList AIProviderCatalogue::rows() const
{
    QVariantList list;
    for (AIProvider provider : AIProviders::all()) {
        const AIProviderFacts& facts = AIProviders::facts(provider);
        if (facts.catalogueLine) {
            list.append(
                QVariantMap{{QStringLiteral("name"), AIProviders::displayName(provider)},
                            {QStringLiteral("models"), QString::fromUtf8(facts.catalogueLine)}});
        }
    }
    return list;
}
