#include "XmlEntityCheck.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstring>

namespace tessaro {

namespace {

bool isNameStart(unsigned char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || c >= 0x80;
}

bool isNameCharacter(unsigned char c)
{
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

bool isPredefinedEntity(std::string_view name)
{
    return name == "amp" || name == "lt" || name == "gt" || name == "apos" || name == "quot";
}

// The entity reference "&name;" that starts at `ampersand`, when it names an
// entity XML does not predefine. A character reference, a predefined entity
// or a lone "&" (which the parser keeps as text) gives nothing.
std::optional<std::string_view> foreignEntityAt(std::string_view text, std::size_t ampersand)
{
    std::size_t i = ampersand + 1;
    if (i >= text.size() || !isNameStart(static_cast<unsigned char>(text[i])))
        return std::nullopt;
    while (i < text.size() && isNameCharacter(static_cast<unsigned char>(text[i])))
        ++i;
    if (i >= text.size() || text[i] != ';')
        return std::nullopt;
    const std::string_view name = text.substr(ampersand + 1, i - ampersand - 1);
    if (isPredefinedEntity(name))
        return std::nullopt;
    return text.substr(ampersand, i - ampersand + 1);
}

std::optional<std::string_view> firstForeignEntity(std::string_view text)
{
    for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1))
        if (auto reference = foreignEntityAt(text, at))
            return reference;
    return std::nullopt;
}

// Whether the bytes are in an encoding where markup characters are single
// bytes (UTF-8, Latin-1). UTF-16 and UTF-32 documents, with or without a byte
// order mark, have a zero byte or a FE FF mark among their first four bytes.
bool isAsciiCompatible(std::string_view document)
{
    const std::string_view head = document.substr(0, 4);
    if (head.find('\0') != std::string_view::npos)
        return false;
    return head.substr(0, 2) != "\xFE\xFF" && head.substr(0, 2) != "\xFF\xFE";
}

// The cheap test: no "&" that could be a foreign entity reference and no
// entity declaration anywhere in the bytes. Most documents pass it.
bool certainlyClean(std::string_view document)
{
    const char* const begin = document.data();
    const char* const end = begin + document.size();
    for (const char* p = begin; (p = static_cast<const char*>(std::memchr(p, '&', end - p))); ++p)
        if (foreignEntityAt(document, static_cast<std::size_t>(p - begin)))
            return false;
    for (const char* p = begin; (p = static_cast<const char*>(std::memchr(p, '!', end - p))); ++p)
        if (p > begin && p[-1] == '<' && std::string_view(p + 1, end - p - 1).substr(0, 6) == "ENTITY")
            return false;
    return true;
}

std::string located(std::string message, std::string_view copy, const char* at)
{
    if (at >= copy.data() && at <= copy.data() + copy.size())
        message += " at " + xmlPositionText(copy, at - copy.data());
    return message;
}

// The exact test, for a document that failed the cheap one: the parser reads
// a copy with entity handling off, so that comments and CDATA sections are
// told apart from text, and the text and attribute values are searched for
// references. A document the parser cannot read gives nothing here: reading
// it fails anyway, with the parser's own message.
std::optional<std::string> exactProblem(std::string_view document)
{
    std::string copy(document);
    pugi::xml_document parsed;
    const unsigned options = pugi::parse_doctype | pugi::parse_cdata;
    if (!parsed.load_buffer_inplace(copy.data(), copy.size(), options, pugi::encoding_auto))
        return std::nullopt;
    const std::string_view text(copy);

    // Every node, without recursion: documents may nest very deeply.
    pugi::xml_node node = parsed.first_child();
    while (node) {
        switch (node.type()) {
        case pugi::node_doctype:
            if (std::strstr(node.value(), "<!ENTITY"))
                return located("the document type declares entities", text, node.value());
            break;
        case pugi::node_pcdata:
            if (auto reference = firstForeignEntity(node.value()))
                return located("entity reference '" + std::string(reference->substr(0, 60)) +
                                   "' (only amp, lt, gt, apos and quot are read)",
                               text, reference->data());
            break;
        case pugi::node_element:
            for (pugi::xml_attribute attribute : node.attributes())
                if (auto reference = firstForeignEntity(attribute.value()))
                    return located("entity reference '" + std::string(reference->substr(0, 60)) +
                                       "' in an attribute (only amp, lt, gt, apos and quot are read)",
                                   text, reference->data());
            break;
        default: break;
        }
        if (node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node && !node.next_sibling())
            node = node.parent();
        if (node)
            node = node.next_sibling();
    }
    return std::nullopt;
}

} // namespace

std::string xmlPositionText(std::string_view document, std::size_t offset)
{
    std::size_t line = 1, column = 1;
    const std::size_t end = std::min(offset, document.size());
    for (std::size_t i = 0; i < end; ++i) {
        if (document[i] == '\n') {
            ++line;
            column = 1;
        } else {
            ++column;
        }
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

std::optional<std::string> xmlEntityProblem(std::string_view document)
{
    if (isAsciiCompatible(document) && certainlyClean(document))
        return std::nullopt;
    return exactProblem(document);
}

} // namespace tessaro
