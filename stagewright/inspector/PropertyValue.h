// The value an inspector control hands to an edit. Each property has its own
// type; a value of another type is read as the fallback the edit names, so a
// control can never store a value of the wrong kind.
#pragma once

#include <tessaro/model/Geometry.h>
#include <tessaro/model/SubRecords.h>
#include <tessaro/model/Uuid.h>

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace stagewright {

/// One bound of a pinned range of a background: the range's place in its
/// list and both bounds as the steppers show them.
struct RangeBoundValue {
    std::size_t index = 0;
    double lower = 0;
    double upper = 0;
    bool operator==(const RangeBoundValue&) const = default;
};

using PropertyValue =
    std::variant<std::monostate, bool, std::int64_t, double, std::string, std::vector<std::string>, tessaro::PointValue,
                 tessaro::SizeValue, tessaro::Uuid, tessaro::PhysicsProperty, RangeBoundValue>;

/// A number: a real, or a whole number read as one.
std::optional<double> numberOf(const PropertyValue& value);
/// A whole number: an integer, or a real with its fraction dropped.
std::optional<std::int64_t> integerOf(const PropertyValue& value);
std::optional<bool> flagOf(const PropertyValue& value);
std::optional<std::string> textOf(const PropertyValue& value);
/// A list of texts (case names); a single text counts as a list of one.
std::optional<std::vector<std::string>> listOf(const PropertyValue& value);
std::optional<tessaro::PointValue> pointOf(const PropertyValue& value);
std::optional<tessaro::SizeValue> sizeOf(const PropertyValue& value);

/// The value as the trace lines print it.
std::string describe(const PropertyValue& value);

} // namespace stagewright
