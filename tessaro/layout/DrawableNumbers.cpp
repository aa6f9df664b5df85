#include "DrawableNumbers.h"

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace tessaro::layout {

double drawablePosition(double value, const std::string& what)
{
    if (std::isfinite(value) && std::abs(value) <= kFarthestPosition)
        return value;
    diagnostic("The " + what + " " + numberText(value) +
               " cannot be shown; the canvas uses 0 and the level keeps its value.");
    return 0;
}

PointValue drawablePoint(PointValue point, const std::string& what)
{
    return {drawablePosition(point.x, what), drawablePosition(point.y, what)};
}

SizeValue drawableSize(SizeValue size, const std::string& what)
{
    const bool usable = std::isfinite(size.width) && std::isfinite(size.height);
    if (!usable) {
        diagnostic("The " + what + " " + textFromPair(size.width, size.height) +
                   " cannot be shown; the canvas uses the picture's own size and the level keeps its value.");
        return {};
    }
    if (size.width <= 0 || size.height <= 0)
        return size.width == 0 && size.height == 0 ? size : SizeValue{};
    if (size.width > kLargestDrawnSide || size.height > kLargestDrawnSide) {
        diagnostic("The " + what + " " + textFromPair(size.width, size.height) + " is shown at most " +
                   numberText(kLargestDrawnSide) + " points on a side; the level keeps its value.");
        return {std::min(size.width, kLargestDrawnSide), std::min(size.height, kLargestDrawnSide)};
    }
    return size;
}

double quietPosition(double value)
{
    return std::isfinite(value) && std::abs(value) <= kFarthestPosition ? value : 0.0;
}

} // namespace tessaro::layout
