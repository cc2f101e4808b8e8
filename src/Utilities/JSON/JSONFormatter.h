/// The operations of the JSON screen: pretty-print, minify and validate a text, and convert it to a tree.
/// Each operation parses the whole text. The parser and writer are in JSON.h.
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

/// One node of the displayed tree with all its descendants. A value type that owns its children; never deeper
/// than `JSON::maxDepth`.
struct JSONNode {
    LazyUUID id{};     ///< differs in every parse of the same text, and is the same in copies
    std::string key{}; ///< the member's name, "[3]" for the element at index 3, "root" at the top
    JSONValueType type = JSONValueType::unknown;
    std::optional<std::string> value{}; ///< the displayed text of a scalar; none for objects and arrays
    std::vector<JSONNode> children{};   ///< members in ascending order of their keys, elements in text order

    bool operator==(const JSONNode&) const = default;
};

namespace JSONFormatter {

/// Why an operation failed.
struct JSONError {
    enum class Kind { invalidJSON, emptyInput };

    /// The bytes [offset, end) of the input, and how the message names them.
    struct Place {
        std::size_t offset = 0;
        std::size_t end = 0;
        std::string name{}; ///< such as "line 3, column 14"

        bool operator==(const Place&) const = default;
    };

    Kind kind = Kind::emptyInput;
    std::string message{};        ///< the parser's message, for `invalidJSON`
    std::optional<Place> place{}; ///< of the error in the input, where the message tells of one

    static JSONError invalidJSON(std::string message, std::optional<Place> place = {}) {
        return {Kind::invalidJSON, std::move(message), std::move(place)};
    }

    static JSONError emptyInput() { return {}; }

    /// The message for users.
    std::string errorDescription() const;

    /// Equal errors say the same.
    bool operator==(const JSONError& other) const { return kind == other.kind && message == other.message; }
};

/// The members of the input that a result lacks, because an object keeps only the last member of each name.
struct DuplicateNames {
    std::size_t count = 0;
    std::string example{}; ///< one of their names

    /// The message for users, such as `Duplicate name "a": only its last value counts`; empty for a count of
    /// 0.
    std::string description() const;

    bool operator==(const DuplicateNames&) const = default;
};

// Where `duplicates` is given, an operation that succeeds sets it.

/// `input` with two spaces a level, one member or element a line and members sorted by name. `indent` is
/// accepted and has no effect: the layout is always the same.
std::expected<std::string, JSONError> prettify(std::string_view input, int indent,
                                               DuplicateNames* duplicates = nullptr);

/// `input` without white space. Members are sorted by name here too, so that their order in `input` does not
/// affect the result.
std::expected<std::string, JSONError> minify(std::string_view input, DuplicateNames* duplicates = nullptr);

/// True, or the error in `input`.
std::expected<bool, JSONError> validate(std::string_view input, DuplicateNames* duplicates = nullptr);

/// The root of the tree of `input`. Unlike the other operations, accepts a lone scalar.
std::expected<JSONNode, JSONError> parseToTree(std::string_view input, DuplicateNames* duplicates = nullptr);

} // namespace JSONFormatter

} // namespace korvane
