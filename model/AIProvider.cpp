// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AIProvider.h"

QStringList AIProviders::models(AIProvider provider)
{
    QStringList list;
    for (const char* model : facts(provider).models) {
        if (model) {
            list << QString::fromUtf8(model);
        }
    }
    return list;
}

QStringList AIProviders::shellVariables()
{
    QStringList names;
    for (const AIProviderFacts& provider : entries) {
        names << QString::fromUtf8(provider.keyVariable ? provider.keyVariable
                                                        : provider.addressVariable);
    }
    return names;
}

QStringList AIProviders::processVariables()
{
    QStringList names;
    for (const AIProviderFacts& provider : entries) {
        if (provider.keyInProcess) {
            names << QString::fromUtf8(provider.keyVariable);
        }
    }
    for (const AIProviderFacts& provider : entries) {
        if (provider.addressInProcess) {
            names << QString::fromUtf8(provider.addressVariable);
        }
    }
    return names;
}
