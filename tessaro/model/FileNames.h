// Names read from files that become parts of paths.
#pragma once

#include <string_view>

namespace tessaro {

/// Whether `name` can stand as one file name inside its folder: not empty,
/// no "/" or "\", no NUL, not "." or "..". A name read from a file is tested
/// before it becomes a path, so that no name leads out of its folder.
inline bool isPlainFileName(std::string_view name)
{
    constexpr std::string_view separators("/\\\0", 3);
    return !name.empty() && name.find_first_of(separators) == std::string_view::npos && name != "." && name != "..";
}

} // namespace tessaro
