// Property-list coding of record lists.
//
// Reading accepts XML and binary property lists; writing produces Apple's XML
// format 1.0 or the binary format. Every record is coded through its field
// table: keys are the field names, absent optional values are left out, and a
// missing required key fails the whole document.
#pragma once

#include "AppConfig.h"
#include "CodingError.h"
#include "LevelRecords.h"

#include <string>
#include <vector>

namespace tessaro {

enum class PlistFormat { xml, binary };

/// Decodes a document whose root is an array of `T`. Throws CodingError.
/// The bytes are taken by value because the XML parser works in place.
template <Record T>
std::vector<T> decodeRecordList(std::string bytes);

/// Encodes an array of `T`. Throws CodingError when a value cannot be coded.
template <Record T>
std::string encodeRecordList(const std::vector<T>& records, PlistFormat format = PlistFormat::xml);

/// Whether the bytes are a binary property list.
bool isBinaryPlist(std::string_view bytes);

} // namespace tessaro
