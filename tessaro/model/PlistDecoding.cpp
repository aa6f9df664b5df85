// Decoding of record lists from XML (pugixml, parsed in place) and binary
// (libplist) property lists. One decoder walks the field tables over either
// document through a node that holds either kind.
#include "BinaryPlistCheck.h"
#include "ConfigRecords.h"
#include "FileIO.h"
#include "PlistCodec.h"
#include "Utf8.h"
#include "ValueText.h"
#include "XmlEntityCheck.h"

#include <plist/plist.h>
#include <pugixml.hpp>

#include <algorithm>
#include <bitset>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

namespace tessaro {

namespace {

enum class Kind { dict, array, string, integer, real, boolean, data, date, unknown };

const char* kindName(Kind kind)
{
    switch (kind) {
    case Kind::dict: return "dictionary";
    case Kind::array: return "array";
    case Kind::string: return "string";
    case Kind::integer: return "integer";
    case Kind::real: return "real";
    case Kind::boolean: return "boolean";
    case Kind::data: return "data";
    case Kind::date: return "date";
    case Kind::unknown: break;
    }
    return "unknown element";
}

[[noreturn]] void typeMismatch(const char* expected, Kind found)
{
    throw CodingError(std::string("Expected ") + expected + " but found " + kindName(found) + ".");
}

std::string_view trimmed(std::string_view s)
{
    const auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    while (!s.empty() && isSpace(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isSpace(s.back()))
        s.remove_suffix(1);
    return s;
}

// ---- Documents ---------------------------------------------------------------

// A node of either document: an XML element (pugixml, parsed in place) or a
// binary one (libplist). One node type keeps the decoder a single instance
// over the record graph; the branch on the document kind costs nothing next
// to the work of each node.
class PlistNode {
public:
    explicit PlistNode(pugi::xml_node node) : xml_(node) {}
    explicit PlistNode(plist_t node) : binary_(node) {}

    Kind kind() const { return binary_ ? binaryKind() : xmlKind(); }

    std::string_view text() const
    {
        if (!binary_)
            return xml_.text().get();
        std::uint64_t length = 0;
        const char* p = plist_get_string_ptr(binary_, &length);
        return p ? std::string_view(p, length) : std::string_view();
    }

    bool boolean() const
    {
        if (!binary_)
            return std::strcmp(xml_.name(), "true") == 0;
        std::uint8_t value = 0;
        plist_get_bool_val(binary_, &value);
        return value != 0;
    }

    std::int64_t integer() const
    {
        if (binary_) {
            // The library keeps every integer as 64 unsigned bits; negative
            // numbers come back as their two's complement.
            std::uint64_t value = 0;
            plist_get_uint_val(binary_, &value);
            return static_cast<std::int64_t>(value);
        }
        std::string_view digits = trimmed(text());
        if (!digits.empty() && digits.front() == '+')
            digits.remove_prefix(1);
        std::int64_t value = 0;
        auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        if (ec == std::errc::result_out_of_range)
            throw CodingError("Integer '" + std::string(digits.substr(0, 40)) + "' does not fit in 64 bits.");
        if (digits.empty() || ec != std::errc{} || end != digits.data() + digits.size())
            throw CodingError("Malformed integer '" + std::string(digits.substr(0, 40)) + "'.");
        return value;
    }

    double real() const
    {
        if (binary_) {
            double value = 0;
            plist_get_real_val(binary_, &value);
            return value;
        }
        const std::string_view digits = trimmed(text());
        if (digits == "+infinity" || digits == "infinity")
            return std::numeric_limits<double>::infinity();
        if (digits == "-infinity")
            return -std::numeric_limits<double>::infinity();
        if (auto value = parseNumber(digits))
            return *value;
        throw CodingError("Malformed real '" + std::string(digits.substr(0, 40)) + "'.");
    }

    std::size_t itemCount() const
    {
        if (binary_)
            return plist_array_get_size(binary_);
        std::size_t n = 0;
        for (pugi::xml_node child = xml_.first_child(); child; child = child.next_sibling())
            n += child.type() == pugi::node_element;
        return n;
    }

    template <class F>
    void forEachItem(F&& f) const
    {
        if (binary_) {
            const std::uint32_t n = plist_array_get_size(binary_);
            for (std::uint32_t i = 0; i < n; ++i)
                f(PlistNode(plist_array_get_item(binary_, i)));
            return;
        }
        for (pugi::xml_node child = xml_.first_child(); child; child = child.next_sibling())
            if (child.type() == pugi::node_element)
                f(PlistNode(child));
    }

    template <class F>
    void forEachEntry(F&& f) const
    {
        if (binary_) {
            plist_dict_iter iter = nullptr;
            plist_dict_new_iter(binary_, &iter);
            std::unique_ptr<void, decltype(&std::free)> iterGuard(iter, &std::free);
            while (true) {
                char* rawKey = nullptr;
                plist_t value = nullptr;
                plist_dict_next_item(binary_, iter, &rawKey, &value);
                std::unique_ptr<char, decltype(&std::free)> key(rawKey, &std::free);
                if (!value)
                    break;
                f(std::string_view(rawKey ? rawKey : ""), PlistNode(value));
            }
            return;
        }
        pugi::xml_node child = nextElement(xml_.first_child());
        while (child) {
            if (std::strcmp(child.name(), "key") != 0)
                throw CodingError(std::string("Expected key in dictionary but found <") + child.name() + ">.");
            const std::string_view key = child.text().get();
            pugi::xml_node value = nextElement(child.next_sibling());
            if (!value)
                throw CodingError("Key '" + std::string(key.substr(0, 80)) + "' has no value.");
            f(key, PlistNode(value));
            child = nextElement(value.next_sibling());
        }
    }

private:
    Kind xmlKind() const
    {
        const std::string_view name = xml_.name();
        if (name == "dict")
            return Kind::dict;
        if (name == "array")
            return Kind::array;
        if (name == "string")
            return Kind::string;
        if (name == "integer")
            return Kind::integer;
        if (name == "real")
            return Kind::real;
        if (name == "true" || name == "false")
            return Kind::boolean;
        if (name == "data")
            return Kind::data;
        if (name == "date")
            return Kind::date;
        return Kind::unknown;
    }

    Kind binaryKind() const
    {
        switch (plist_get_node_type(binary_)) {
        case PLIST_DICT: return Kind::dict;
        case PLIST_ARRAY: return Kind::array;
        case PLIST_STRING: return Kind::string;
        case PLIST_UINT: return Kind::integer;
        case PLIST_REAL: return Kind::real;
        case PLIST_BOOLEAN: return Kind::boolean;
        case PLIST_DATA: return Kind::data;
        case PLIST_DATE: return Kind::date;
        default: return Kind::unknown;
        }
    }

    static pugi::xml_node nextElement(pugi::xml_node n)
    {
        while (n && n.type() != pugi::node_element)
            n = n.next_sibling();
        return n;
    }

    pugi::xml_node xml_;
    plist_t binary_ = nullptr;
};

// ---- The generic decoder ----------------------------------------------------

void expectKind(const PlistNode& node, Kind expected, const char* what)
{
    const Kind found = node.kind();
    if (found != expected)
        typeMismatch(what, found);
}

void decodeValue(const PlistNode& node, std::string& out)
{
    expectKind(node, Kind::string, "string");
    const std::string_view text = node.text();
    if (const char* problem = storedTextProblem(text))
        throw CodingError(problem);
    out.assign(text);
}

void decodeValue(const PlistNode& node, Uuid& out)
{
    expectKind(node, Kind::string, "a UUID string");
    auto id = Uuid::fromText(node.text());
    if (!id)
        throw CodingError("Invalid UUID string '" + std::string(node.text().substr(0, 40)) + "'.");
    out = *id;
}

void decodeValue(const PlistNode& node, bool& out)
{
    expectKind(node, Kind::boolean, "boolean");
    out = node.boolean();
}

void decodeValue(const PlistNode& node, double& out)
{
    const Kind kind = node.kind();
    if (kind == Kind::real)
        out = node.real();
    else if (kind == Kind::integer)
        out = static_cast<double>(node.integer());
    else
        typeMismatch("real", kind);
}

void decodeValue(const PlistNode& node, std::int64_t& out)
{
    const Kind kind = node.kind();
    if (kind == Kind::integer) {
        out = node.integer();
    } else if (kind == Kind::real) {
        // A whole real that fits reads as an integer, as numbers bridge.
        const double value = node.real();
        if (!(value >= -9.2233720368547758e18 && value < 9.2233720368547758e18) ||
            value != static_cast<double>(static_cast<std::int64_t>(value)))
            throw CodingError("Real number does not fit in an integer.");
        out = static_cast<std::int64_t>(value);
    } else {
        typeMismatch("integer", kind);
    }
}

template <class T>
void decodeValue(const PlistNode& node, std::optional<T>& out);
template <class T>
void decodeValue(const PlistNode& node, boxed<T>& out);
template <class T>
void decodeValue(const PlistNode& node, std::vector<T>& out);
template <Record R>
void decodeValue(const PlistNode& node, R& out);

template <class T>
void decodeValue(const PlistNode& node, std::optional<T>& out)
{
    decodeValue(node, out.emplace());
}

template <class T>
void decodeValue(const PlistNode& node, boxed<T>& out)
{
    decodeValue(node, out.emplace());
}

template <class T>
void decodeValue(const PlistNode& node, std::vector<T>& out)
{
    expectKind(node, Kind::array, "array");
    out.clear();
    out.reserve(node.itemCount());
    node.forEachItem([&](const PlistNode& item) {
        try {
            decodeValue(item, out.emplace_back());
        } catch (CodingError& error) {
            error.addPathComponent("[" + std::to_string(out.size() - 1) + "]");
            throw;
        }
    });
}

template <Record R>
void decodeValue(const PlistNode& node, R& out)
{
    expectKind(node, Kind::dict, "dictionary");
    std::bitset<fieldCount<R>> seen;
    node.forEachEntry([&](std::string_view key, const PlistNode& value) {
        std::size_t index = 0;
        bool matched = false;
        forEachField<R>([&](const auto& field) {
            if (!matched && field.key == key) {
                matched = true;
                try {
                    decodeValue(value, out.*(field.member));
                } catch (CodingError& error) {
                    error.addPathComponent(std::string(field.key));
                    throw;
                }
                seen.set(index);
            }
            if (!matched)
                ++index;
        });
        // Keys that no field names are ignored.
    });
    std::size_t index = 0;
    forEachField<R>([&](const auto& field) {
        using Member = std::remove_cvref_t<decltype(out.*(field.member))>;
        if (!isOptionalMember<Member> && !seen.test(index))
            throw CodingError("No value associated with required key '" + std::string(field.key) + "'.");
        ++index;
    });
}

template <Record T>
std::vector<T> decodeRoot(const PlistNode& root)
{
    std::vector<T> records;
    decodeValue(root, records);
    return records;
}

// Removes a node and everything below it, leaf by leaf: the library's own
// removal recurses and would overflow the stack on a deeply nested document.
void removeSubtree(pugi::xml_node top)
{
    pugi::xml_node node = top;
    while (true) {
        while (node.first_child())
            node = node.first_child();
        if (node == top)
            break;
        pugi::xml_node parent = node.parent();
        parent.remove_child(node);
        node = parent;
    }
    top.parent().remove_child(top);
}

// Decodes the root array entry by entry and drops each entry's part of the
// document once it is decoded, so the records reuse the parser's memory and
// the peak stays near the size of the document rather than document plus
// records.
template <Record T>
std::vector<T> decodeXmlRoot(pugi::xml_node root)
{
    expectKind(PlistNode(root), Kind::array, "array");
    std::vector<T> records;
    records.reserve(PlistNode(root).itemCount());
    pugi::xml_node item = root.first_child();
    while (item) {
        pugi::xml_node next = item.next_sibling();
        if (item.type() == pugi::node_element) {
            try {
                decodeValue(PlistNode(item), records.emplace_back());
            } catch (CodingError& error) {
                error.addPathComponent("[" + std::to_string(records.size() - 1) + "]");
                throw;
            }
        }
        removeSubtree(item);
        item = next;
    }
    return records;
}

// Largest document we agree to read; a project of this size is far beyond any
// real game and reading it would only exhaust memory.
constexpr std::size_t maximumDocumentSize = std::size_t{1} << 30;

[[noreturn]] void notAPropertyList(const std::string& why)
{
    throw CodingError("The data is not a valid property list: " + why + ".");
}

// Parses the bytes in place: the document's texts stay where they are in the
// buffer and the records copy them from there.
template <Record T>
std::vector<T> decodeXml(char* data, std::size_t size)
{
    const std::string_view bytes(data, size);
    // Entities are refused before the parser sees the document.
    if (auto problem = xmlEntityProblem(bytes))
        notAPropertyList(*problem);
    pugi::xml_document document;
    const unsigned options = pugi::parse_escapes | pugi::parse_eol | pugi::parse_cdata | pugi::parse_ws_pcdata_single |
        pugi::parse_embed_pcdata;
    const pugi::xml_parse_result parsed = document.load_buffer_inplace(data, size, options, pugi::encoding_auto);
    if (!parsed)
        notAPropertyList(std::string(parsed.description()) + " at " +
                         xmlPositionText(bytes, static_cast<std::size_t>(std::max<std::ptrdiff_t>(parsed.offset, 0))));
    pugi::xml_node top = document.document_element();
    if (!top)
        notAPropertyList("no root element");
    if (std::strcmp(top.name(), "plist") == 0) {
        pugi::xml_node value = top.first_child();
        while (value && value.type() != pugi::node_element)
            value = value.next_sibling();
        if (!value)
            throw CodingError("The property list is empty.");
        top = value;
    }
    return decodeXmlRoot<T>(top);
}

template <Record T>
std::vector<T> decodeBinary(std::string_view bytes)
{
    if (auto error = checkBinaryPlistStructure(bytes))
        throw CodingError(*error);
    plist_t root = nullptr;
    plist_from_bin(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    if (!root)
        throw CodingError("The data is not a valid binary property list.");
    std::unique_ptr<void, decltype(&plist_free)> guard(root, &plist_free);
    return decodeRoot<T>(PlistNode(root));
}

// Decodes a document held in a buffer the parser may change.
template <Record T>
std::vector<T> decodeInPlace(char* data, std::size_t size)
{
    if (size > maximumDocumentSize)
        throw CodingError("The file is too large to be a property list.");
    if (size == 0)
        throw CodingError("The data is empty.");
    const std::string_view bytes(data, size);
    if (isBinaryPlist(bytes))
        return decodeBinary<T>(bytes);
    return decodeXml<T>(data, size);
}

} // namespace

bool isBinaryPlist(std::string_view bytes)
{
    return bytes.substr(0, 8) == "bplist00";
}

template <Record T>
std::vector<T> decodeRecordList(std::string bytes)
{
    return decodeInPlace<T>(bytes.data(), bytes.size());
}

template <Record T>
RecordFileResult<T> readRecordFile(const std::string& path)
{
    RecordFileResult<T> result;
    try {
        FileBufferResult file = readFileBuffer(path);
        if (!file.buffer) {
            result.error = std::move(file.error);
            return result;
        }
        result.records = decodeInPlace<T>(file.buffer->data(), file.buffer->size());
        result.ok = true;
    } catch (const CodingError& error) {
        result.error = error.description();
    } catch (const std::bad_alloc&) {
        result.error = "Not enough memory to read the file.";
    }
    return result;
}

#define TESSARO_DECODE_INSTANCES(T)                                                                                    \
    template std::vector<T> decodeRecordList<T>(std::string);                                                          \
    template RecordFileResult<T> readRecordFile<T>(const std::string&);

TESSARO_DECODE_INSTANCES(Level)
TESSARO_DECODE_INSTANCES(Obstacle)
TESSARO_DECODE_INSTANCES(Character)
TESSARO_DECODE_INSTANCES(GenericObject)
TESSARO_DECODE_INSTANCES(LoadedConfig)
TESSARO_DECODE_INSTANCES(TitleSceneConfig)

} // namespace tessaro
