#include "settings/profiles/SSHKeyScan.h"

#include "activation/SSHKeyScanner.h"
#include "model/HomePath.h"

SSHKeyScan::SSHKeyScan(QObject* parent) : QObject(parent) {}

QStringList SSHKeyScan::scanKeys() const
{
    return SSHKeyScanner::scanSorted(HomePath::home());
}
