#include "SceneNumbers.h"

#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace stagewright {

double drawablePosition(double value, const std::string& what)
{
    if (std::isfinite(value) && std::abs(value) <= kFarthestPosition)
        return value;
    tessaro::diagnostic("The " + what + " " + tessaro::numberText(value) +
                        " cannot be shown; the canvas uses 0 and the level keeps its value.");
    return 0;
}

tessaro::PointValue drawablePoint(tessaro::PointValue point, const std::string& what)
{
    return {drawablePosition(point.x, what), drawablePosition(point.y, what)};
}

tessaro::SizeValue drawableSize(tessaro::SizeValue size, const std::string& what)
{
    const bool usable = std::isfinite(size.width) && std::isfinite(size.height);
    if (!usable) {
        tessaro::diagnostic("The " + what + " " + tessaro::textFromPair(size.width, size.height) +
                            " cannot be shown; the canvas uses the picture's own size and the level keeps its value.");
        return {};
    }
    if (size.width <= 0 || size.height <= 0)
        return size.width == 0 && size.height == 0 ? size : tessaro::SizeValue{};
    if (size.width > kLargestDrawnSide || size.height > kLargestDrawnSide) {
        tessaro::diagnostic("The " + what + " " + tessaro::textFromPair(size.width, size.height) +
                            " is shown at most " + tessaro::numberText(kLargestDrawnSide) +
                            " points on a side; the level keeps its value.");
        return {std::min(size.width, kLargestDrawnSide), std::min(size.height, kLargestDrawnSide)};
    }
    return size;
}

} // namespace stagewright
