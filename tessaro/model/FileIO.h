// Whole-file reads and atomic replacement of files.
#pragma once

#include <optional>
#include <string>

namespace tessaro {

struct FileReadResult {
    std::optional<std::string> bytes; // absent when the file could not be read
    std::string error; // why, when absent
};

/// Reads a whole regular file.
FileReadResult readWholeFile(const std::string& path);

/// Writes `bytes` to a temporary file beside `path`, flushes it to disk and
/// renames it over `path`, so a reader sees the old file or the new one, never
/// a part. Keeps the permissions of a file it replaces. Returns an error text,
/// or nothing on success.
std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view bytes);

} // namespace tessaro
