// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/KivoraApp.h"

#include <QtQml/qqmlextensionplugin.h>

// The views' QML module is linked in statically.
Q_IMPORT_QML_PLUGIN(KivoraPlugin)

int main(int argc, char** argv)
{
    return KivoraApp::main(argc, argv);
}
