#include "activation/ProfileManager.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Kivora"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KIVORA_VERSION));
    QTextStream(stderr) << "kivora: the command line is not built yet\n";
    return 2;
}
