// Field tables: every record lists its stored fields once, as (key, member).
//
// The table drives decoding, encoding and the reflective walk; equality is
// the defaulted member-wise comparison. A field is required exactly when its
// member is neither std::optional nor boxed.
#pragma once

#include "Boxed.h"

#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

namespace tessaro {

template <class Record, class Member>
struct Field {
    std::string_view key;
    Member Record::*member;
};
template <class Record, class Member>
Field(const char*, Member Record::*) -> Field<Record, Member>;

/// Declares one field whose key is the member's own name. Use inside a
/// record's `fields()` with `using S = TheRecord;` in scope.
// clang-format off
#define TESSARO_FIELD(name) ::tessaro::Field{#name, &S::name}
// clang-format on

template <class T>
concept Record = requires
{
    T::fields();
};

template <class T>
struct OptionalTraits {
    static constexpr bool isOptional = false;
    using value_type = T;
};
template <class T>
struct OptionalTraits<std::optional<T>> {
    static constexpr bool isOptional = true;
    using value_type = T;
};
template <class T>
struct OptionalTraits<boxed<T>> {
    static constexpr bool isOptional = true;
    using value_type = T;
};

template <class T>
inline constexpr bool isOptionalMember = OptionalTraits<T>::isOptional;

template <class T>
struct IsVector : std::false_type {
};
template <class T>
struct IsVector<std::vector<T>> : std::true_type {
};

/// Calls `f(field)` for each field of `R`, in declaration order.
template <Record R, class F>
constexpr void forEachField(F&& f)
{
    std::apply([&](const auto&... field) { (f(field), ...); }, R::fields());
}

template <Record R>
inline constexpr std::size_t fieldCount = std::tuple_size_v<decltype(R::fields())>;

} // namespace tessaro
