// The one place records are made, copied, moved, destroyed and compared,
// and their boxes with them; every other file calls these.
#include "BoxedRecords.h"

#include "LevelRecords.h"

namespace tessaro {

TESSARO_DEFINE_RECORD_MEMBERS(PolyPhysics)
TESSARO_DEFINE_RECORD_MEMBERS(PhysicsProperty)
TESSARO_DEFINE_RECORD_MEMBERS(CycleEndProperties)
TESSARO_DEFINE_RECORD_MEMBERS(AnimationProperty)
TESSARO_DEFINE_RECORD_MEMBERS(ProjectileProperties)
TESSARO_DEFINE_RECORD_MEMBERS(SiblingProperties)
TESSARO_DEFINE_RECORD_MEMBERS(Obstacle)
TESSARO_DEFINE_RECORD_MEMBERS(Character)
TESSARO_DEFINE_RECORD_MEMBERS(GenericObject)
TESSARO_DEFINE_RECORD_MEMBERS(BackgroundImage)
TESSARO_DEFINE_RECORD_MEMBERS(Background)
TESSARO_DEFINE_RECORD_MEMBERS(GroundSection)
TESSARO_DEFINE_RECORD_MEMBERS(ObstacleLevelItem)
TESSARO_DEFINE_RECORD_MEMBERS(CharacterLevelItem)
TESSARO_DEFINE_RECORD_MEMBERS(CheckPointLocation)
TESSARO_DEFINE_RECORD_MEMBERS(CheckPointData)
TESSARO_DEFINE_RECORD_MEMBERS(WindowItem)
TESSARO_DEFINE_RECORD_MEMBERS(LevelEndData)
TESSARO_DEFINE_RECORD_MEMBERS(Coin)
TESSARO_DEFINE_RECORD_MEMBERS(Coins)
TESSARO_DEFINE_RECORD_MEMBERS(Shield)
TESSARO_DEFINE_RECORD_MEMBERS(Shields)
TESSARO_DEFINE_RECORD_MEMBERS(Artifact)
TESSARO_DEFINE_RECORD_MEMBERS(Artifacts)
TESSARO_DEFINE_RECORD_MEMBERS(Level)

template class boxed<Actions>;
template class boxed<AnimationProperty>;
template class boxed<Artifacts>;
template class boxed<Background>;
template class boxed<Character>;
template class boxed<CheckPointData>;
template class boxed<Coins>;
template class boxed<CollisionDetection>;
template class boxed<Delays>;
template class boxed<FontInfo>;
template class boxed<LevelEndData>;
template class boxed<Obstacle>;
template class boxed<PhysicsProperty>;
template class boxed<RotationProperties>;
template class boxed<Shields>;
template class boxed<TargetDistances>;
template class boxed<WaitPerAnimationFrame>;

} // namespace tessaro
