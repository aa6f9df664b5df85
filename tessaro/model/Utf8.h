// UTF-8 validation of texts read from files.
#pragma once

#include <string_view>

namespace tessaro {

/// Whether `text` is well-formed UTF-8 (no overlongs, surrogates or values
/// above U+10FFFF).
bool isValidUtf8(std::string_view text);

} // namespace tessaro
