// Refusal of XML documents that declare entities or refer to entities that
// XML does not predefine. A property list never needs either, and declared
// entities are the road to expansion bombs ("billion laughs") and to reading
// other files through external entities. Nothing is ever expanded: a document
// that would need it is refused before it is parsed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessaro {

/// Why the XML document must not be read: its document type declaration
/// declares entities, or its text or an attribute refers to an entity other
/// than amp, lt, gt, apos and quot. Nothing when it does neither. Character
/// references ("&#233;") are fine, and so is entity-like text inside comments
/// and CDATA sections. Runs in time and memory linear in the document; a
/// document without a suspicious "&" or "<!ENTITY" costs two memchr passes.
std::optional<std::string> xmlEntityProblem(std::string_view document);

/// "line L, column C" of a byte offset in a document, for error messages.
std::string xmlPositionText(std::string_view document, std::size_t offset);

} // namespace tessaro
