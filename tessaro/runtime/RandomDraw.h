// The library's random draws: delays drawn from range texts, and a choice
// among several animation names.
#pragma once

#include <optional>
#include <string>

namespace tessaro {

/// A value drawn uniformly from "lower...upper" with 53 random bits:
/// lower + (upper - lower) * r / 2^53. An absent text gives 0.
double drawFromRange(const std::optional<std::string>& rangeText);

/// A uniformly chosen index below `count` (> 0).
int randomIndex(int count);

} // namespace tessaro
