/// The functions that all enumerations with display texts share: `rawValue`, `allCases`, `fromRawValue`,
/// `icon`, `label`, `description`. Each enumeration defines its facts once, in a specialisation of `facts`;
/// this header defines none.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace korvane {

/// The table of one enumeration: a `std::array` with a row for each case, in declaration order. A row is an
/// aggregate with at least `value` (the case) and `rawValue` (its text, or the number that it stands for),
/// and with whichever of `icon`, `label` and `description` the enumeration has. Specialise it in the header
/// of the enumeration, right after it: a translation unit that knows the enumeration and not the table would
/// use the definition below, which violates the one-definition rule:
///
///     template <> inline constexpr auto facts<Mode> = std::to_array<ModeFacts>({{Mode::encode, "Encode"},
///     ...});
template <typename E>
inline constexpr std::nullptr_t facts = nullptr;

template <typename E>
concept Enumerated = std::is_enum_v<E> && !std::is_null_pointer_v<std::remove_cv_t<decltype(facts<E>)>>;

/// The row of `value`. The table must list the cases in declaration order and without gaps; compilation fails
/// otherwise.
template <Enumerated E>
constexpr const auto& factsOf(E value) {
    static_assert(
        [] {
            for (std::size_t i = 0; i < facts<E>.size(); ++i) {
                if (static_cast<std::size_t>(facts<E>[i].value) != i)
                    return false;
            }
            return true;
        }(),
        "facts table rows must be in declaration order");
    return facts<E>[static_cast<std::size_t>(value)];
}

/// All cases in declaration order.
template <Enumerated E>
inline constexpr auto allCases = [] {
    std::array<E, facts<E>.size()> cases{};
    for (std::size_t i = 0; i < cases.size(); ++i)
        cases[i] = facts<E>[i].value;
    return cases;
}();

/// The type of an enumeration's raw values: text for most, a number for some.
template <Enumerated E>
using RawValue = std::remove_cvref_t<decltype(facts<E>[0].rawValue)>;

/// The text or number of the case.
template <Enumerated E>
constexpr RawValue<E> rawValue(E value) {
    return factsOf(value).rawValue;
}

/// The case whose `rawValue` equals `raw` (text compares case-sensitively), or none.
template <Enumerated E>
constexpr std::optional<E> fromRawValue(RawValue<E> raw) {
    for (const auto& row : facts<E>) {
        if (row.rawValue == raw)
            return row.value;
    }
    return std::nullopt;
}

/// The glyph name of the case.
template <Enumerated E>
constexpr std::string_view icon(E value)
    requires requires { factsOf(value).icon; }
{
    return factsOf(value).icon;
}

/// The text beside the case's control, where it differs from `rawValue`.
template <Enumerated E>
constexpr std::string_view label(E value) {
    return factsOf(value).label;
}

/// The case's title in a list of choices: its raw value, or its label where the raw values are numbers.
template <Enumerated E>
constexpr std::string_view title(E value) {
    if constexpr (std::is_convertible_v<RawValue<E>, std::string_view>)
        return rawValue(value);
    else
        return label(value);
}

/// One line that describes the case's purpose.
template <Enumerated E>
constexpr std::string_view description(E value) {
    return factsOf(value).description;
}

} // namespace korvane
