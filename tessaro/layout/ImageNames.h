// Which image a picture is drawn from, and at what size.
#pragma once

#include <tessaro/model/Enumerations.h>

#include <string>

namespace tessaro::layout {

/// The first name of a comma-separated image text, trimmed; the text as it
/// stands when it has no comma.
std::string firstImageName(const std::string& imageText);

/// How many pixels of a workspace's images make one point: an image drawn
/// at its own size is its pixel size divided by this.
double pixelsPerPoint(imageScaling scale);

} // namespace tessaro::layout
