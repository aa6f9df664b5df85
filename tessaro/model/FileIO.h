// Whole-file reads and atomic replacement of files.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessaro {

struct FileReadResult {
    std::optional<std::string> bytes; // absent when the file could not be read
    std::string error; // why, when absent
};

/// Reads a whole regular file.
FileReadResult readWholeFile(const std::string& path);

struct FileBufferResult;

/// A whole file in one block of memory that the caller may change in place
/// (the XML parser works in place). The block is sized from the file once,
/// and a big one asks the kernel for 2 MiB pages: where every first touch of
/// a fresh 4 KiB page is a costly fault, a 10 MB file would otherwise cost
/// some 2,500 of them.
class FileBuffer {
public:
    FileBuffer() = default;
    FileBuffer(FileBuffer&& other) noexcept;
    FileBuffer& operator=(FileBuffer&& other) noexcept;
    FileBuffer(const FileBuffer&) = delete;
    FileBuffer& operator=(const FileBuffer&) = delete;
    ~FileBuffer();

    char* data() { return data_; }
    std::size_t size() const { return size_; }
    std::string_view view() const { return {data_, size_}; }

private:
    friend FileBufferResult readFileBuffer(const std::string& path);
    void* mapping_ = nullptr;
    std::size_t mappingSize_ = 0;
    char* data_ = nullptr;
    std::size_t size_ = 0;
};

struct FileBufferResult {
    std::optional<FileBuffer> buffer; // absent when the file could not be read
    std::string error; // why, when absent
};

/// Reads a whole regular file into a FileBuffer.
FileBufferResult readFileBuffer(const std::string& path);

/// Writes `bytes` to a temporary file beside `path`, flushes it to disk and
/// renames it over `path`, so a reader sees the old file or the new one, never
/// a part. Keeps the permissions of a file it replaces. Returns an error text,
/// or nothing on success.
std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view bytes);

} // namespace tessaro
