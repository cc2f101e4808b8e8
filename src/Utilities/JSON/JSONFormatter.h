/// What the JSON screen does with a text: pretty-print it, shrink it, check it, show it as a tree. Each
/// operation reads the whole text anew. The language itself is in JSON.h.
#pragma once

#include "Models/Enumeration.h"
#include "Utilities/UUID.h"

#include <array>
#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

enum class JSONValueType { object, array, string, number, bool_, null, unknown };

struct JSONValueTypeFacts {
    JSONValueType value;
    std::string_view rawValue;
    std::string_view icon;
};

template <>
inline constexpr auto facts<JSONValueType> = std::to_array<JSONValueTypeFacts>({
    {JSONValueType::object, "object", "curlybraces"},
    {JSONValueType::array, "array", "brackets"},
    {JSONValueType::string, "string", "textformat"},
    {JSONValueType::number, "number", "number"},
    {JSONValueType::bool_, "bool", "checkmark.circle"},
    {JSONValueType::null, "null", "circle.slash"},
    {JSONValueType::unknown, "unknown", "questionmark"},
});

/// One value of a document with everything under it, as the tree shows it. A plain value that owns its
/// children; never deeper than `JSON::maxDepth`.
struct JSONNode {
    UUID id = UUID::random(); ///< another one in every parse of the same text
    std::string key{};        ///< the member's name, "[3]" for the element at index 3, "root" at the top
    JSONValueType type = JSONValueType::unknown;
    std::optional<std::string> value{}; ///< what a scalar shows; none for objects and arrays
    std::vector<JSONNode> children{};   ///< members in ascending order of their keys, elements as they come

    bool operator==(const JSONNode&) const = default;
};

namespace JSONFormatter {

/// Why a text could not be used.
struct JSONError {
    enum class Kind { invalidJSON, emptyInput };

    Kind kind = Kind::emptyInput;
    std::string message{}; ///< what is wrong, for `invalidJSON`

    static JSONError invalidJSON(std::string message) { return {Kind::invalidJSON, std::move(message)}; }

    static JSONError emptyInput() { return {}; }

    /// The text for people.
    std::string errorDescription() const;

    bool operator==(const JSONError&) const = default;
};

/// The members that a result lacks although the input has them, because of an object only the last member of
/// a name counts.
struct DuplicateNames {
    std::size_t count = 0;
    std::string example{}; ///< the name of one of them

    /// The text for people, such as `Duplicate name "a": only its last value counts`; for a count of 0 none.
    std::string description() const;

    bool operator==(const DuplicateNames&) const = default;
};

// Where `duplicates` is given, an operation that succeeds sets it.

/// `input` with two spaces a level, one member or element a line and members sorted by name. `indent` is
/// accepted and has no effect: the layout is always the same.
std::expected<std::string, JSONError> prettify(std::string_view input, int indent,
                                               DuplicateNames* duplicates = nullptr);

/// `input` without white space. Members are in the order of their names here, too, so that the same members
/// give the same text in whatever order they came.
std::expected<std::string, JSONError> minify(std::string_view input, DuplicateNames* duplicates = nullptr);

/// True, or what is wrong with `input`.
std::expected<bool, JSONError> validate(std::string_view input, DuplicateNames* duplicates = nullptr);

/// The root of the tree of `input`. Unlike the other operations this one takes a lone scalar, too.
std::expected<JSONNode, JSONError> parseToTree(std::string_view input, DuplicateNames* duplicates = nullptr);

} // namespace JSONFormatter

} // namespace korvane
