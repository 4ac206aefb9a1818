#pragma once

#include "model/AIProvider.h"

#include <QtQml/qqml.h>

// The providers as the QML enumeration "AIProvider" (AIProvider.OpenAI, … AIProvider.Local).
namespace AIProviderForeign {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(AIProviderKind)
QML_NAMED_ELEMENT(AIProvider)
} // namespace AIProviderForeign
