// Field tables: every record lists its stored fields once, as (key, member).
//
// The table drives decoding, encoding and the reflective walk; equality is
// the defaulted member-wise comparison. A field is required exactly when its
// member is neither std::optional nor boxed.
#pragma once

#include "Boxed.h"

#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>
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

/// Declares a record's construction, copy, move, destruction and comparison,
/// for records that hold other records. Records.cpp defines them, member-wise,
/// once for the whole tree: a file that copies or compares a level calls them
/// instead of compiling the record graph again. Records of plain values stay
/// aggregates.
#define TESSARO_RECORD_MEMBERS(T) \
    T();                          \
    T(const T&);                  \
    T(T&&) noexcept;              \
    T& operator=(const T&);       \
    T& operator=(T&&) noexcept;   \
    ~T();                         \
    bool operator==(const T&) const

/// Defines what TESSARO_RECORD_MEMBERS declares, member-wise, in one source.
#define TESSARO_DEFINE_RECORD_MEMBERS(T)                 \
    T::T() = default;                                    \
    T::T(const T&) = default;                            \
    T::T(T&&) noexcept = default;                        \
    T& T::operator=(const T&) = default;                 \
    T& T::operator=(T&&) noexcept = default;             \
    T::~T() = default;                                   \
    bool T::operator==(const T&) const = default;
// clang-format on

namespace detail {
template <std::size_t I, class F>
struct FieldSlot {
    F field;
};
template <class Indexes, class... Fs>
struct FieldSlots;
template <std::size_t... I, class... Fs>
struct FieldSlots<std::index_sequence<I...>, Fs...> : FieldSlot<I, Fs>... {
    constexpr explicit FieldSlots(Fs... fs) : FieldSlot<I, Fs>{fs}... {}
};
template <std::size_t I, class F>
constexpr const F& fieldAt(const FieldSlot<I, F>& slot)
{
    return slot.field;
}
} // namespace detail

/// The fields of a record in declaration order. A plain list rather than a
/// std::tuple: every source that includes the records builds these lists, and
/// the tuple's constrained constructors cost seconds of every compile.
template <class... Fs>
struct FieldList : detail::FieldSlots<std::index_sequence_for<Fs...>, Fs...> {
    static constexpr std::size_t size = sizeof...(Fs);

    constexpr FieldList(Fs... fs) : detail::FieldSlots<std::index_sequence_for<Fs...>, Fs...>(fs...) {}

    template <std::size_t N>
    constexpr const auto& get() const
    {
        return detail::fieldAt<N>(*this);
    }
    /// Calls `f(field...)` with every field.
    template <class F>
    constexpr void apply(F&& f) const
    {
        applyAll(f, std::index_sequence_for<Fs...>{});
    }

private:
    template <class F, std::size_t... I>
    constexpr void applyAll(F& f, std::index_sequence<I...>) const
    {
        f(detail::fieldAt<I>(*this)...);
    }
};
template <class... Fs>
FieldList(Fs...) -> FieldList<Fs...>;

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
    R::fields().apply([&](const auto&... field) { (f(field), ...); });
}

template <Record R>
inline constexpr std::size_t fieldCount = decltype(R::fields())::size;

} // namespace tessaro
