#include "SeedResources.h"

#include <mutex>

// Resources compiled into a static library must be registered by hand.
static void registerStateResources()
{
    Q_INIT_RESOURCE(seed);
}

namespace stagewright {

void initialiseStateResources()
{
    static std::once_flag once;
    std::call_once(once, registerStateResources);
}

QString seedRoot()
{
    initialiseStateResources();
    return QStringLiteral(":/stagewright/seed/");
}

QString applicationImagesRoot()
{
    initialiseStateResources();
    return QStringLiteral(":/stagewright/images/");
}

QStringList requiredSeedFiles()
{
    return {QStringLiteral("Assets/ObjectList.plist"), QStringLiteral("Assets/Images/Extras/placeholder.png"),
            QStringLiteral("Assets/CharacterList.plist"), QStringLiteral("Assets/ObstacleList.plist")};
}

} // namespace stagewright
