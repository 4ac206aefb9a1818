#include "app/KivoraApp.h"

#include <QtQml/qqmlextensionplugin.h>

// The views' QML module is linked in statically.
Q_IMPORT_QML_PLUGIN(KivoraPlugin)

int main(int argc, char** argv)
{
    return KivoraApp::main(argc, argv);
}
