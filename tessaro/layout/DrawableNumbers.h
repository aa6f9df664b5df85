// Numbers from level files made safe to lay out. Texts that read as infinite
// or enormous values stay in the records untouched; the layout uses a usable
// value instead and says so.
#pragma once

#include <tessaro/model/Geometry.h>

#include <string>

namespace tessaro::layout {

/// The longest side, in points, that an element is laid out with.
inline constexpr double kLargestDrawnSide = 100000;
/// The farthest distance from the origin, in points, at which anything is
/// placed.
inline constexpr double kFarthestPosition = 1.0e9;

/// `value` when it is a finite number within the farthest position, else 0,
/// with a line naming `what`.
double drawablePosition(double value, const std::string& what);
PointValue drawablePoint(PointValue point, const std::string& what);
/// A size whose sides are finite and above 0 (else (0,0): the picture's own
/// size), and at most the largest drawn side.
SizeValue drawableSize(SizeValue size, const std::string& what);

/// `value` when it could be placed, else 0, without a word: for positions
/// set before their device values are read.
double quietPosition(double value);

} // namespace tessaro::layout
