// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/AIProvider.h"

#include <QtQml/qqml.h>

// The providers as the QML enumeration "AIProvider" (AIProvider.OpenAI, … AIProvider.Local).
namespace AIProviderForeign {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(AIProviderKind)
QML_NAMED_ELEMENT(AIProvider)
} // namespace AIProviderForeign
