// The records that other records hold boxed. Their boxes, and with them the
// copy, destruction and comparison of everything inside, are compiled once in
// Records.cpp; every other file calls those instead of compiling the
// record graph again.
#pragma once

#include "Boxed.h"

namespace tessaro {

struct Actions;
struct AnimationProperty;
struct Artifacts;
struct Background;
struct Character;
struct CheckPointData;
struct Coins;
struct CollisionDetection;
struct Delays;
struct FontInfo;
struct LevelEndData;
struct Obstacle;
struct PhysicsProperty;
struct RotationProperties;
struct Shields;
struct TargetDistances;
struct WaitPerAnimationFrame;

extern template class boxed<Actions>;
extern template class boxed<AnimationProperty>;
extern template class boxed<Artifacts>;
extern template class boxed<Background>;
extern template class boxed<Character>;
extern template class boxed<CheckPointData>;
extern template class boxed<Coins>;
extern template class boxed<CollisionDetection>;
extern template class boxed<Delays>;
extern template class boxed<FontInfo>;
extern template class boxed<LevelEndData>;
extern template class boxed<Obstacle>;
extern template class boxed<PhysicsProperty>;
extern template class boxed<RotationProperties>;
extern template class boxed<Shields>;
extern template class boxed<TargetDistances>;
extern template class boxed<WaitPerAnimationFrame>;

} // namespace tessaro
