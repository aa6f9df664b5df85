// The tile a hazard section of the ground repeats over its distance.
#pragma once

#include <tessaro/model/Enumerations.h>

#include <optional>
#include <string>

namespace tessaro::layout {

/// The ground image of the hazard `type`; empty for `Ground`, which draws its
/// own images, and for a type that is not known.
std::string hazardTileName(std::optional<groundBaseType> type);

} // namespace tessaro::layout
