#include "app/UpdaterForeign.h"

#include <QPointer>

namespace {

QPointer<Updater> s_updater;

} // namespace

void UpdaterForeign::setInstance(Updater* updater)
{
    s_updater = updater;
}

Updater* UpdaterForeign::instance()
{
    if (!s_updater) {
        s_updater = new Updater(nullptr);
    }
    return s_updater;
}

Updater* UpdaterForeign::create(QQmlEngine*, QJSEngine*)
{
    Updater* updater = instance();
    QJSEngine::setObjectOwnership(updater, QJSEngine::CppOwnership);
    return updater;
}
