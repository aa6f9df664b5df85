// The position a game placed last at random. Stored positions above
// `repeatPositionLimit` repeat its coordinates, in the game and on the
// editor's canvas alike.
#pragma once

#include <tessaro/model/Geometry.h>

namespace tessaro {

/// A stored coordinate above this value takes the matching coordinate of
/// `lastRandomPosition`.
inline constexpr double repeatPositionLimit = 999999998;

/// Starts at (0,0); only games set it, the library reads it.
PointValue lastRandomPosition();
void setLastRandomPosition(PointValue position);

} // namespace tessaro
