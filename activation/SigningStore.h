// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/SigningSettings.h"

#include <QHash>
#include <QString>
#include <QUuid>

#include <optional>

// The signing settings of every profile, in ~/.kivora/signing.json: one object keyed by the
// profile's id, private to the user and written whole and atomically. A profile without an
// entry does not sign.
class SigningStore {
public:
    explicit SigningStore(const QString& home);

    QString path() const { return m_path; }

    // Reads the file again. A missing file is an empty store; a file that cannot be read as
    // signing settings is also treated as empty, and `error` says why.
    QHash<QUuid, SigningSettings> load(QString* error = nullptr) const;

    std::optional<SigningSettings> find(const QUuid& id) const;

    // Sets or (with nothing) removes the entry of one profile. False, with `error`, when the
    // file could not be written.
    bool set(const QUuid& id, const std::optional<SigningSettings>& settings,
             QString* error = nullptr) const;

private:
    QString m_path;
};
