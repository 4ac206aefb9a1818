// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QVariantList>

// The providers the AI settings page lists, with their models lines, from the provider table:
// every provider that has such a line, in table order (the local server has none).
class AIProviderCatalogue : public QObject {
    Q_OBJECT

public:
    explicit AIProviderCatalogue(QObject* parent = nullptr);

    // Maps with "name" and "models".
    Q_INVOKABLE QVariantList rows() const;
};
