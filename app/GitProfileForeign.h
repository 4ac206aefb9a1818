// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/GitProfile.h"

#include <QtQml/qqml.h>

// A profile record, readable from QML as the value type "gitProfile".
struct GitProfileForeign {
    Q_GADGET
    QML_FOREIGN(GitProfile)
    QML_VALUE_TYPE(gitProfile)
};
