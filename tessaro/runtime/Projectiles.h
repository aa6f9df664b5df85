// Projectiles thrown by characters.
#pragma once

#include <tessaro/model/SubRecords.h>

namespace tessaro {

class SKSpriteNodeEnemy2dBase;

/// Throws the projectile of `record` from `shooter` into the shooter's
/// parent, as "PROJECTILE_<shooter>_<index>". A slot holds one live
/// projectile: while one of that name is in the parent nothing is thrown.
/// The impulse is the velocity of the last velocity range that holds the
/// distance to the target, turned when the shooter faces away from where
/// its image looks. True when a projectile was thrown.
bool fireProjectile(const ProjectileProperties& record, SKSpriteNodeEnemy2dBase& shooter, int index);

} // namespace tessaro
