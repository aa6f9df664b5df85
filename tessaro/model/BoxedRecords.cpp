// The one place the boxed records, and so the whole record graph, are copied,
// destroyed and compared.
#include "BoxedRecords.h"

#include "LevelRecords.h"

namespace tessaro {

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
