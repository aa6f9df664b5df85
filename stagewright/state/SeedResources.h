// The resources this program carries: the seed of a new workspace and the
// application's own images.
#pragma once

#include <QString>
#include <QStringList>

namespace stagewright {

/// Makes the compiled-in resources available; safe to call any number of times.
void initialiseStateResources();

/// The seed workspace tree in the resources, ending in "/": it holds
/// "Assets/ObjectList.plist", "Assets/CharacterList.plist",
/// "Assets/ObstacleList.plist" and "Assets/Images/<Kind>/...".
QString seedRoot();
/// The folder of the application's images in the resources, ending in "/".
QString applicationImagesRoot();
/// The seed files a new workspace cannot do without, relative to `seedRoot()`.
QStringList requiredSeedFiles();

} // namespace stagewright
