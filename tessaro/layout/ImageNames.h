// The image a picture is drawn from when its text lists several.
#pragma once

#include <string>

namespace tessaro::layout {

/// The first name of a comma-separated image text, trimmed; the text as it
/// stands when it has no comma.
std::string firstImageName(const std::string& imageText);

} // namespace tessaro::layout
