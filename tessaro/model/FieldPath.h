// Field paths: any stored field of a level named by the keys of the field
// tables, from the level down ("obstacles.3.properties.zPosition"). A number
// steps into a list; an optional or boxed record on the way is stepped
// through. One generic read, write and comparison serve every field, so an
// editor sets any field with one operation.
#pragma once

#include <any>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

struct Level;

class FieldPath {
public:
    FieldPath() = default;
    /// The path of the dotted text; empty steps are left out.
    explicit FieldPath(std::string_view dotted);

    const std::vector<std::string>& steps() const { return m_steps; }
    bool empty() const { return m_steps.empty(); }
    std::string text() const;

    /// This path followed by `rest`.
    FieldPath operator/(const FieldPath& rest) const;
    FieldPath operator/(std::string_view step) const;
    FieldPath operator/(std::size_t index) const;
    /// Whether this path is `prefix` or lies below it.
    bool startsWith(const FieldPath& prefix) const;

    bool operator==(const FieldPath&) const = default;
    auto operator<=>(const FieldPath&) const = default;

private:
    std::vector<std::string> m_steps;
};

/// A field's value: the member's value type (an optional text reads as
/// std::string), empty when the field is absent.
using FieldValue = std::any;

/// Reads the field at `path`; false when the path names no field of `level`
/// or passes through an absent record or past the end of a list.
bool readField(const Level& level, const FieldPath& path, FieldValue& value);
/// Writes the field at `path`: an empty value takes an optional field out. A
/// value of another type than the field, or a path that reads no field,
/// writes nothing and gives false.
bool writeField(Level& level, const FieldPath& path, const FieldValue& value);
/// Whether the field at `path` holds `value` (both absent counts).
bool fieldHolds(const Level& level, const FieldPath& path, const FieldValue& value);

} // namespace tessaro
