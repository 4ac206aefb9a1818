#include "app/Logging.h"

Q_LOGGING_CATEGORY(lcApp, "kivora.app", QtWarningMsg)
Q_LOGGING_CATEGORY(lcQml, "kivora.qml", QtWarningMsg)
Q_LOGGING_CATEGORY(lcSymbols, "kivora.symbols", QtWarningMsg)
