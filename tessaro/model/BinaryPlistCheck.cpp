#include "BinaryPlistCheck.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tessaro {

namespace {

constexpr std::size_t headerSize = 8; // "bplist00"
constexpr std::size_t trailerSize = 32;

std::uint64_t bigEndian(const unsigned char* p, std::size_t size)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
        value = value << 8 | p[i];
    return value;
}

struct Table {
    std::string_view bytes;
    std::size_t offsetSize = 0;
    std::size_t refSize = 0;
    std::uint64_t objectCount = 0;
    std::uint64_t topObject = 0;
    std::uint64_t tableOffset = 0;

    const unsigned char* at(std::size_t offset) const
    {
        return reinterpret_cast<const unsigned char*>(bytes.data()) + offset;
    }
    // Offset of an object, or nothing when the table points outside the data.
    std::optional<std::size_t> objectOffset(std::uint64_t index) const
    {
        const std::uint64_t entry = tableOffset + index * offsetSize;
        const std::uint64_t offset = bigEndian(at(static_cast<std::size_t>(entry)), offsetSize);
        if (offset < headerSize || offset >= tableOffset)
            return std::nullopt;
        return static_cast<std::size_t>(offset);
    }
};

// Reads the length of a string or container object at `offset`, moving
// `position` to its first byte of content. Nothing when it is malformed.
std::optional<std::uint64_t> objectLength(const Table& table, std::size_t offset, std::size_t& position)
{
    std::uint64_t length = *table.at(offset) & 0x0F;
    position = offset + 1;
    if (length != 0x0F)
        return length;
    // The length follows as an integer object: marker 0x1n, 2^n bytes.
    if (position >= table.tableOffset)
        return std::nullopt;
    const unsigned char intMarker = *table.at(position);
    if ((intMarker >> 4) != 0x1 || (intMarker & 0x0F) > 3)
        return std::nullopt;
    const std::size_t size = std::size_t{1} << (intMarker & 0x0F);
    if (position + 1 + size > table.tableOffset)
        return std::nullopt;
    length = bigEndian(table.at(position + 1), size);
    position += 1 + size;
    return length;
}

// Dictionary keys must be strings (ASCII or UTF-16) without a NUL character:
// the parser aborts on any other key.
bool isValidKey(const Table& table, std::uint64_t ref)
{
    const auto offset = table.objectOffset(ref);
    if (!offset)
        return false;
    const unsigned kind = *table.at(*offset) >> 4;
    if (kind != 0x5 && kind != 0x6)
        return false;
    std::size_t position = 0;
    const auto length = objectLength(table, *offset, position);
    const std::uint64_t unitSize = kind == 0x6 ? 2 : 1;
    if (!length || *length > table.tableOffset || position + *length * unitSize > table.tableOffset)
        return false;
    for (std::uint64_t i = 0; i < *length; ++i) {
        const unsigned char* unit = table.at(position + static_cast<std::size_t>(i * unitSize));
        if (unit[0] == 0 && (unitSize == 1 || unit[1] == 0))
            return false;
    }
    return true;
}

// The references held by a container object; empty for any other object.
// Returns false when the object is malformed.
bool childrenOf(const Table& table, std::size_t offset, std::vector<std::uint64_t>& children)
{
    children.clear();
    const unsigned char marker = *table.at(offset);
    const unsigned kind = marker >> 4;
    if (kind != 0xA && kind != 0xD && kind != 0xC) // array, dictionary, set
        return true;
    std::size_t position = 0;
    const auto length = objectLength(table, offset, position);
    if (!length)
        return false;
    const std::uint64_t count = *length;
    const std::uint64_t refs = kind == 0xD ? count * 2 : count;
    if (refs > table.objectCount * 2 || position + refs * table.refSize > table.tableOffset)
        return false;
    children.reserve(static_cast<std::size_t>(refs));
    for (std::uint64_t i = 0; i < refs; ++i) {
        const std::uint64_t ref =
            bigEndian(table.at(position + static_cast<std::size_t>(i) * table.refSize), table.refSize);
        if (ref >= table.objectCount)
            return false;
        if (kind == 0xD && i < count && !isValidKey(table, ref))
            return false;
        children.push_back(ref);
    }
    return true;
}

} // namespace

std::optional<std::string> checkBinaryPlistStructure(std::string_view bytes)
{
    if (bytes.size() < headerSize + trailerSize)
        return "The binary property list is truncated.";
    Table table;
    table.bytes = bytes;
    const unsigned char* trailer = table.at(bytes.size() - trailerSize);
    table.offsetSize = trailer[6];
    table.refSize = trailer[7];
    table.objectCount = bigEndian(trailer + 8, 8);
    table.topObject = bigEndian(trailer + 16, 8);
    table.tableOffset = bigEndian(trailer + 24, 8);
    const std::uint64_t dataEnd = bytes.size() - trailerSize;
    if (table.offsetSize < 1 || table.offsetSize > 8 || table.refSize < 1 || table.refSize > 8 ||
        table.objectCount == 0 || table.topObject >= table.objectCount || table.tableOffset < headerSize ||
        table.tableOffset > dataEnd || table.objectCount > (dataEnd - table.tableOffset) / table.offsetSize)
        return "The binary property list has a broken trailer.";

    // Height of every object reached from the top, computed once per object
    // with an explicit stack; an object met again while still open is a cycle.
    enum : int { unvisited = -1, open = -2 };
    std::vector<int> height(static_cast<std::size_t>(table.objectCount), unvisited);
    struct Frame {
        std::uint64_t object;
        std::vector<std::uint64_t> children;
        std::size_t next = 0;
        int tallest = 0;
    };
    std::vector<Frame> stack;
    std::vector<std::uint64_t> children;

    const auto enter = [&](std::uint64_t object) -> std::optional<std::string> {
        const auto offset = table.objectOffset(object);
        if (!offset || !childrenOf(table, *offset, children))
            return "The binary property list has a broken object.";
        height[static_cast<std::size_t>(object)] = open;
        stack.push_back(Frame{object, children});
        if (stack.size() > static_cast<std::size_t>(maximumPlistNesting))
            return "The property list is nested too deeply.";
        return std::nullopt;
    };

    if (auto error = enter(table.topObject))
        return error;
    while (!stack.empty()) {
        Frame& frame = stack.back();
        if (frame.next < frame.children.size()) {
            const std::uint64_t child = frame.children[frame.next++];
            const int h = height[static_cast<std::size_t>(child)];
            if (h == open)
                return "The binary property list refers to itself.";
            if (h == unvisited) {
                if (auto error = enter(child))
                    return error;
            } else if (h + 1 > frame.tallest) {
                frame.tallest = h + 1;
            }
            continue;
        }
        const int finished = frame.tallest;
        height[static_cast<std::size_t>(frame.object)] = finished;
        stack.pop_back();
        if (!stack.empty() && finished + 1 > stack.back().tallest)
            stack.back().tallest = finished + 1;
        if (finished + static_cast<int>(stack.size()) > maximumPlistNesting)
            return "The property list is nested too deeply.";
    }
    return std::nullopt;
}

} // namespace tessaro
