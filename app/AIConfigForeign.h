// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/AIConfig.h"

#include <QtQml/qqml.h>

// A profile's AI settings, readable from QML as the value type "aiConfig".
struct AIConfigForeign {
    Q_GADGET
    QML_FOREIGN(AIConfig)
    QML_VALUE_TYPE(aiConfig)
};
