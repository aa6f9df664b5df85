// The reflective walk: any record as a table of its field names and values,
// for the read-only tables of the inspector.
#pragma once

#include "Fields.h"
#include "Uuid.h"

#include <climits>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tessaro {

struct ReflectionValue;
using ReflectionTable = std::map<std::string, ReflectionValue>;

struct ReflectionValue {
    enum class Kind { absent, text, boolean, real, integer, uuid, table, list, record };
    Kind kind = Kind::absent;
    std::string text; // text, or a UUID's text
    bool boolean = false;
    double real = 0;
    std::int64_t integer = 0;
    std::size_t count = 0; // entries of a list
    std::shared_ptr<ReflectionTable> table; // nested record, below the depth limit
};

/// The text shown for a field whose optional text is absent.
inline constexpr const char* notDefinedText = "Not defined";

/// A value as one line of text; an absent value gives "".
std::string reflectionText(const ReflectionValue& value);

namespace detail {

using Kind = ReflectionValue::Kind;

inline ReflectionValue ofKind(Kind kind)
{
    ReflectionValue value;
    value.kind = kind;
    return value;
}
inline ReflectionValue reflected(const std::string& v)
{
    ReflectionValue value = ofKind(Kind::text);
    value.text = v;
    return value;
}
inline ReflectionValue reflected(bool v)
{
    ReflectionValue value = ofKind(Kind::boolean);
    value.boolean = v;
    return value;
}
inline ReflectionValue reflected(double v)
{
    ReflectionValue value = ofKind(Kind::real);
    value.real = v;
    return value;
}
inline ReflectionValue reflected(std::int64_t v)
{
    ReflectionValue value = ofKind(Kind::integer);
    value.integer = v;
    return value;
}
inline ReflectionValue reflected(const Uuid& v)
{
    ReflectionValue value = ofKind(Kind::uuid);
    value.text = v.text();
    return value;
}
template <class T>
ReflectionValue reflected(const std::vector<T>& v)
{
    ReflectionValue value = ofKind(Kind::list);
    value.count = v.size();
    return value;
}

template <Record R>
ReflectionTable walk(const R& record, int depth, int maxDepth);

// A record below the depth limit opens into its own table; at the limit, or
// when it has nothing to show, it stands as a whole value.
template <Record R>
ReflectionValue reflected(const R& record, int depth, int maxDepth)
{
    if (depth < maxDepth) {
        ReflectionTable nested = walk(record, depth + 1, maxDepth);
        if (!nested.empty()) {
            ReflectionValue value = ofKind(Kind::table);
            value.table = std::make_shared<ReflectionTable>(std::move(nested));
            return value;
        }
    }
    return ofKind(Kind::record);
}

template <class T>
ReflectionValue reflectedMember(const T& value, int depth, int maxDepth)
{
    if constexpr (Record<T>)
        return reflected(value, depth, maxDepth);
    else
        return reflected(value);
}

template <class T>
ReflectionValue reflectedMember(const std::optional<T>& value, int depth, int maxDepth)
{
    if (value)
        return reflectedMember(*value, depth, maxDepth);
    if constexpr (std::is_same_v<T, std::string>)
        return reflected(std::string(notDefinedText));
    else if constexpr (std::is_same_v<T, bool>)
        return reflected(false);
    else
        return {};
}

template <class T>
ReflectionValue reflectedMember(const boxed<T>& value, int depth, int maxDepth)
{
    if (value)
        return reflectedMember(*value, depth, maxDepth);
    return {};
}

template <Record R>
ReflectionTable walk(const R& record, int depth, int maxDepth)
{
    ReflectionTable table;
    forEachField<R>([&](const auto& field) {
        if (!field.key.empty())
            table.emplace(std::string(field.key), reflectedMember(record.*(field.member), depth, maxDepth));
    });
    return table;
}

} // namespace detail

/// Each field's name mapped to its value. Absent optional texts read "Not
/// defined", absent flags false, absent numbers and ids stay absent. Nested
/// records open into tables down to `maxDepth`; lists stand as whole values.
template <Record R>
ReflectionTable reflectionTable(const R& value, int maxDepth = INT_MAX)
{
    return detail::walk(value, 0, maxDepth);
}

} // namespace tessaro
