#include "LevelScene.h"

namespace stagewright {

LevelScene::~LevelScene() = default;
SceneHost::~SceneHost() = default;

void SceneHost::showDebugOptions(const std::vector<tessaro::DebugOption>&) {}

} // namespace stagewright
