// Numbers from level files made safe to draw: the layout's own checks, by
// the names the canvas has always used.
#pragma once

#include <tessaro/layout/DrawableNumbers.h>

namespace stagewright {

using tessaro::layout::drawablePoint;
using tessaro::layout::drawablePosition;
using tessaro::layout::drawableSize;
using tessaro::layout::kFarthestPosition;
using tessaro::layout::kLargestDrawnSide;

} // namespace stagewright
