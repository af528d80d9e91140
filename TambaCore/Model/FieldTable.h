#pragma once

#include "TambaCore/Model/Models.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

/// Each record's keys and members, listed once, in the file's order (sorted by key). Reading, writing, comparing,
/// merging and explaining a change all walk these tables. Optional members may be missing in the file; all others must
/// be there. A `static_assert` breaks the build when a member is forgotten or a key is out of order.
namespace tamba {

template <class Record, class Member>
struct Field {
    std::string_view key;
    Member Record::* member;
};
template <class Record, class Member>
Field(const char*, Member Record::*) -> Field<Record, Member>;

/// A tuple of `Field`; specialised for every record of the books.
template <class Record>
inline constexpr auto Fields = nullptr;

template <class T>
concept IsRecord = requires { std::tuple_size<std::remove_cvref_t<decltype(Fields<T>)>>::value; };

/// Records that keep the keys they do not know; `TaxSplit` alone has a closed set of keys.
template <class T>
concept KeepsUnknownKeys = requires(T record) { record.unknown; };

/// What tells one record of a list from the others: its id, or the currency of an exchange rate.
template <class T>
[[nodiscard]] const auto& identity(const T& record) {
    if constexpr (requires { record.id; })
        return record.id;
    else
        return record.currency;
}
template <class T>
[[nodiscard]] std::string identityText(const T& record) {
    if constexpr (requires { record.id; })
        return record.id.text();
    else
        return record.currency;
}

/// The words of an enumeration in the file, in the order of its values.
template <class E>
inline constexpr auto enumWords = nullptr;

template <class E>
[[nodiscard]] constexpr std::string_view word(E value) {
    return enumWords<E>[static_cast<std::size_t>(value)];
}

template <class E>
[[nodiscard]] constexpr std::optional<E> fromWord(std::string_view text) {
    for (std::size_t i = 0; i < enumWords<E>.size(); ++i)
        if (enumWords<E>[i] == text) return static_cast<E>(i);
    return std::nullopt;
}

namespace FieldChecks {

/// Converts to any member; optionals need a probe of their own because they also construct from what their value type
/// constructs from.
struct AnyPlain {
    template <class T>
    operator T() const;
};
struct AnyOptional {
    template <class T>
    operator std::optional<T>() const;
};

template <class T, class... Probes>
consteval std::size_t memberCount() {
    if constexpr (requires { T{Probes{}..., AnyPlain{}}; })
        return memberCount<T, Probes..., AnyPlain>();
    else if constexpr (requires { T{Probes{}..., AnyOptional{}}; })
        return memberCount<T, Probes..., AnyOptional>();
    else
        return sizeof...(Probes);
}

template <class T>
consteval bool sorted() {
    return std::apply(
        [](const auto&... fields) {
            const std::array keys{fields.key...};
            for (std::size_t i = 1; i < keys.size(); ++i)
                if (!(keys[i - 1] < keys[i])) return false;
            return true;
        },
        Fields<T>);
}

}  // namespace FieldChecks

template <class T>
inline constexpr std::size_t fieldCount = std::tuple_size_v<std::remove_cvref_t<decltype(Fields<T>)>>;

/// Every member stands in the table once, keys sorted.
template <class T>
inline constexpr bool listsEveryField =
    FieldChecks::memberCount<T>() == fieldCount<T> + (KeepsUnknownKeys<T> ? 1 : 0) && FieldChecks::sorted<T>();

}  // namespace tamba
