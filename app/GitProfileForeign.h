#pragma once

#include "model/GitProfile.h"

#include <QtQml/qqml.h>

// A profile record, readable from QML as the value type "gitProfile".
struct GitProfileForeign {
    Q_GADGET
    QML_FOREIGN(GitProfile)
    QML_VALUE_TYPE(gitProfile)
};
