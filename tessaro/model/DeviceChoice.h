// The devices whose entries a look-up takes, and where the game placed
// something at random last. Each program keeps its own and hands it to the
// device look-up: a game its device, the editor the default-made one, which
// chooses no device (the default entries answer) and has placed nothing.
#pragma once

#include "Enumerations.h"
#include "Geometry.h"

namespace tessaro {

/// A stored coordinate above this value takes the matching coordinate of
/// the last random position, in the game and on the editor's canvas alike.
inline constexpr double repeatPositionLimit = 999999998;

struct DeviceChoice {
    /// The device the game runs on, and a second device whose entries come next.
    deviceName primary = deviceName::none;
    deviceName secondary = deviceName::none;
    /// The position the game placed last at random.
    PointValue lastRandomPosition;

    /// `position` with each coordinate above `repeatPositionLimit` taken
    /// from `lastRandomPosition`.
    PointValue repeated(PointValue position) const
    {
        if (position.x > repeatPositionLimit)
            position.x = lastRandomPosition.x;
        if (position.y > repeatPositionLimit)
            position.y = lastRandomPosition.y;
        return position;
    }

    bool operator==(const DeviceChoice&) const = default;
};

} // namespace tessaro
