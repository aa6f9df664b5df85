// Numbers from level files made safe to draw. Texts that read as infinite or
// enormous values stay in the records untouched; the canvas shows a usable
// value instead and says so once.
#pragma once

#include <tessaro/model/Geometry.h>

#include <string>

namespace stagewright {

/// The longest side, in points, that the canvas draws an element with.
inline constexpr double kLargestDrawnSide = 100000;
/// The farthest distance from the origin, in points, at which the canvas
/// places anything.
inline constexpr double kFarthestPosition = 1.0e9;

/// `value` when it is a finite number within the farthest position, else 0,
/// with a line naming `what`.
double drawablePosition(double value, const std::string& what);
tessaro::PointValue drawablePoint(tessaro::PointValue point, const std::string& what);
/// A size whose sides are finite and above 0 (else (0,0): the picture's own
/// size), and at most the largest drawn side.
tessaro::SizeValue drawableSize(tessaro::SizeValue size, const std::string& what);

} // namespace stagewright
