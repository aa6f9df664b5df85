// The walk finds the member a path names and hands it on type-erased, with
// the three operations of its type. It is compiled once, here, for the whole
// level record graph.
#include "FieldPath.h"

#include "BoxedRecords.h"
#include "LevelRecords.h"
#include "NameLists.h"

#include <charconv>
#include <optional>
#include <span>

namespace tessaro {

FieldPath::FieldPath(std::string_view dotted)
{
    while (!dotted.empty()) {
        const std::size_t dot = dotted.find('.');
        const std::string_view step = dotted.substr(0, dot);
        if (!step.empty())
            m_steps.emplace_back(step);
        dotted = dot == std::string_view::npos ? std::string_view() : dotted.substr(dot + 1);
    }
}

std::string FieldPath::text() const
{
    return joinedNames(m_steps, '.');
}

FieldPath FieldPath::operator/(const FieldPath& rest) const
{
    FieldPath joined = *this;
    joined.m_steps.insert(joined.m_steps.end(), rest.m_steps.begin(), rest.m_steps.end());
    return joined;
}

FieldPath FieldPath::operator/(std::string_view step) const
{
    return *this / FieldPath(step);
}

FieldPath FieldPath::operator/(std::size_t index) const
{
    FieldPath joined = *this;
    joined.m_steps.push_back(std::to_string(index));
    return joined;
}

bool FieldPath::startsWith(const FieldPath& prefix) const
{
    return prefix.m_steps.size() <= m_steps.size() &&
        std::equal(prefix.m_steps.begin(), prefix.m_steps.end(), m_steps.begin());
}

namespace {

/// What can be done with a member of one type, without knowing the type.
struct FieldOps {
    FieldValue (*read)(const void* member);
    bool (*write)(void* member, const FieldValue& value);
    bool (*holds)(const void* member, const FieldValue& value);
};

template <class T>
FieldValue readMember(const T& member)
{
    if constexpr (isOptionalMember<T>)
        return member ? FieldValue(*member) : FieldValue();
    else
        return FieldValue(member);
}

template <class T>
bool writeMember(T& member, const FieldValue& value)
{
    using Value = typename OptionalTraits<T>::value_type;
    if (!value.has_value()) {
        if constexpr (isOptionalMember<T>) {
            member.reset();
            return true;
        }
        return false;
    }
    if (const Value* given = std::any_cast<Value>(&value)) {
        member = *given;
        return true;
    }
    return false;
}

template <class T>
bool memberHolds(const T& member, const FieldValue& value)
{
    using Value = typename OptionalTraits<T>::value_type;
    if constexpr (isOptionalMember<T>) {
        if (!member || !value.has_value())
            return !member && !value.has_value();
    } else if (!value.has_value()) {
        return false;
    }
    const Value* given = std::any_cast<Value>(&value);
    if constexpr (isOptionalMember<T>)
        return given && *member == *given;
    else
        return given && member == *given;
}

template <class T>
const FieldOps& opsOf()
{
    static const FieldOps ops{
        [](const void* member) { return readMember(*static_cast<const T*>(member)); },
        [](void* member, const FieldValue& value) { return writeMember(*static_cast<T*>(member), value); },
        [](const void* member, const FieldValue& value) { return memberHolds(*static_cast<const T*>(member), value); },
    };
    return ops;
}

/// The member a path names, with its operations.
struct FoundField {
    void* member = nullptr;
    const FieldOps* ops = nullptr;
};

using Steps = std::span<const std::string>;

template <class T>
FoundField find(T& value, Steps steps);

template <class T>
FoundField findInside(T& value, Steps steps)
{
    if constexpr (Record<T>) {
        FoundField found;
        bool matched = false;
        forEachField<T>([&](const auto& field) {
            if (!matched && field.key == steps.front()) {
                matched = true;
                found = find(value.*(field.member), steps.subspan(1));
            }
        });
        return found;
    } else if constexpr (isOptionalMember<T>) {
        return value ? findInside(*value, steps) : FoundField{};
    } else if constexpr (IsVector<T>::value) {
        std::size_t index = 0;
        const std::string& step = steps.front();
        const auto [end, error] = std::from_chars(step.data(), step.data() + step.size(), index);
        if (error != std::errc() || end != step.data() + step.size() || index >= value.size())
            return {};
        return find(value[index], steps.subspan(1));
    } else {
        return {};
    }
}

template <class T>
FoundField find(T& value, Steps steps)
{
    if (steps.empty())
        return {&value, &opsOf<T>()};
    return findInside(value, steps);
}

FoundField find(const Level& level, const FieldPath& path)
{
    if (path.empty())
        return {};
    return find(const_cast<Level&>(level), Steps(path.steps()));
}

} // namespace

bool readField(const Level& level, const FieldPath& path, FieldValue& value)
{
    const FoundField found = find(level, path);
    if (!found.member)
        return false;
    value = found.ops->read(found.member);
    return true;
}

bool writeField(Level& level, const FieldPath& path, const FieldValue& value)
{
    const FoundField found = find(level, path);
    return found.member && found.ops->write(found.member, value);
}

bool fieldHolds(const Level& level, const FieldPath& path, const FieldValue& value)
{
    const FoundField found = find(level, path);
    return found.member && found.ops->holds(found.member, value);
}

} // namespace tessaro
