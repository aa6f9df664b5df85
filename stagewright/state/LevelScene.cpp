#include "LevelScene.h"

namespace stagewright {

LevelScene::~LevelScene() = default;
SceneHost::~SceneHost() = default;

} // namespace stagewright
