// Property-list coding of record lists.
//
// Reading accepts XML and binary property lists; writing produces Apple's XML
// format 1.0 or the binary format. Every record is coded through its field
// table: keys are the field names, absent optional values are left out, and a
// missing required key fails the whole document.
#pragma once

#include "CodingError.h"
#include "Fields.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

enum class PlistFormat { xml, binary };

/// Decodes a document whose root is an array of `T`. Throws CodingError.
/// The bytes are taken by value because the XML parser works in place.
template <Record T>
std::vector<T> decodeRecordList(std::string bytes);

/// What reading a whole file of records gave.
template <Record T>
struct RecordFileResult {
    std::vector<T> records;
    bool ok = false; // false when the file could not be read or decoded
    std::string error; // the reason, when not ok
};

/// Reads a file whose root is an array of `T` and decodes it. The file is
/// read into one buffer, sized once, that the XML parser works on in place.
/// Prints nothing and throws nothing for a bad file.
template <Record T>
RecordFileResult<T> readRecordFile(const std::string& path);

/// Encodes an array of `T`. Throws CodingError when a value cannot be coded.
template <Record T>
std::string encodeRecordList(const std::vector<T>& records, PlistFormat format = PlistFormat::xml);

/// Whether the bytes are a binary property list.
bool isBinaryPlist(std::string_view bytes);

} // namespace tessaro
