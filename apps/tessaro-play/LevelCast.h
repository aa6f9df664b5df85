// Everything of a level that is not scenery: obstacles, characters and the
// things the player collects, made from the level's records and the
// workspace's catalogues through the library's factories, each where the
// layout puts it and at the size it gives.
#pragma once

#include <tessaro/layout/GroundPlan.h>
#include <tessaro/model/LevelRecords.h>
#include <tessaro/runtime/AppSharedSceneBase.h>
#include <tessaro/runtime/SKSpriteNode2dBase.h>
#include <tessaro/runtime/SKSpriteNodeEnemy2dBase.h>

#include <map>
#include <string>
#include <vector>

namespace play {

/// The userData key that marks a collectible sprite, with its kind as value:
/// "coin", "shield", "artifact" or "checkpoint".
inline const QString kCollectibleKey = QStringLiteral("collectible");

struct Cast {
    tessaro::SKSpriteNodeEnemy2dBasePtr player; // null when the level has no friendly character
    std::vector<tessaro::SKSpriteNodeEnemy2dBasePtr> enemies;
    std::vector<tessaro::SKSpriteNodeEnemy2dBasePtr> friends; // friendly characters but the player
    std::vector<tessaro::SKSpriteNode2dBasePtr> obstacles;
    /// Sprites made, by kind: "obstacles", "characters", "coins", "shields",
    /// "artifacts", "checkpoints".
    std::map<std::string, int> made;
};

/// Makes the cast of `level` inside `world`, standing on `ground`. Items
/// whose catalogue entry is missing or that are hidden are left out.
Cast castLevel(const tessaro::Level& level, const tessaro::layout::GroundPlan& ground,
               tessaro::AppSharedSceneBase& scene, tessaro::kit::Node& world);

} // namespace play
