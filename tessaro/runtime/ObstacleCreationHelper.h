// The factories with which a game turns the records of a level into
// sprites: obstacles and characters. A factory reads every value of the
// record once, applies the defaults, builds the node with physics, sound and
// rotation, and returns it; the caller adds it to `parent`.
#pragma once

#include "SKSpriteNode2dBase.h"
#include "SKSpriteNodeEnemy2dBase.h"

#include <tessaro/model/Geometry.h>
#include <tessaro/model/LevelRecords.h>

namespace tessaro {

class AppSharedSceneBase;

struct ObstacleCreationHelper {
    /// The sprite of `record` (an obstacle of a level, merged over its
    /// catalogue record), positioned in `parent`'s space. A record whose
    /// rotation is pinned to a parent sibling gives that sibling's carrier
    /// sprite instead; the obstacle is then inside it.
    static SKSpriteNode2dBasePtr createObstacle(const Obstacle& record, kit::Node& parent, AppSharedSceneBase& scene);

    /// The sprite of a character placed in a level: `item.properties`
    /// override single values of the catalogue record `character`. The
    /// character follows `target`. Null for a record without an image.
    static SKSpriteNodeEnemy2dBasePtr createCharacter(const CharacterLevelItem& item, const Character& character,
                                                      const std::shared_ptr<kit::SpriteNode>& target, kit::Node& parent,
                                                      AppSharedSceneBase& scene);

    /// Where a sprite of `size` and `anchor` stands in `parent`'s space for
    /// a stored position: with gravity it stands on the scene's ground at
    /// that x; a coordinate above the repeat limit takes the last random
    /// position's; the offset is added.
    static QPointF scenePosition(PointValue position, SizeValue size, PointValue anchor, PointValue offset,
                                 bool useGravity, kit::Node& parent, AppSharedSceneBase& scene);
};

} // namespace tessaro
