#include "app/ProfileManagerForeign.h"

#include "app/AppServices.h"

ProfileManager* ProfileManagerForeign::create(QQmlEngine*, QJSEngine*)
{
    ProfileManager* manager = AppServices::profileManager();
    Q_ASSERT_X(manager, "ProfileManager", "the views are loaded before the profile manager");
    QJSEngine::setObjectOwnership(manager, QJSEngine::CppOwnership);
    return manager;
}
