// UTF-8 validation of texts read from files.
#pragma once

#include <string_view>

namespace tessaro {

/// Whether `text` is well-formed UTF-8 (no overlongs, surrogates or values
/// above U+10FFFF).
bool isValidUtf8(std::string_view text);

/// Why a text cannot be stored in a property list, or null when it can: it
/// must be UTF-8 and hold no NUL character, which XML cannot carry.
const char* storedTextProblem(std::string_view text);

} // namespace tessaro
