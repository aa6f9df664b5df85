// A structural check of binary property lists before they are parsed: the
// parser recurses once per nesting level, so a hostile file nested a hundred
// thousand levels deep would overflow the stack.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessaro {

/// Deepest nesting of arrays and dictionaries a document may have.
inline constexpr int maximumPlistNesting = 512;

/// Follows the object table of a binary property list from its top object and
/// returns an error text when the structure is broken, cyclic or nested deeper
/// than `maximumPlistNesting`; nothing when it is safe to parse.
std::optional<std::string> checkBinaryPlistStructure(std::string_view bytes);

} // namespace tessaro
