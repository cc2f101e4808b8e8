/// Regular expressions in ICU's syntax: the matches of a pattern in a text, the error in a pattern, and the
/// replacement of all matches. Whatever the pattern, a search ends in bounded time and memory.
#pragma once

#include "Models/Enumeration.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::RegularExpression {

/// The reason why a pattern is invalid.
struct PatternError {
    std::string_view fault; ///< a sentence without its full stop
    /// The user-perceived character of the pattern at which the fault was detected, counted from 1; none if
    /// unknown.
    std::optional<std::size_t> position{};

    /// Such as "Incorrectly nested parentheses at character 12."
    std::string errorDescription() const;

    bool operator==(const PatternError&) const = default;
};

/// Why a search ended before the end of the text.
enum class Interruption {
    patternTookTooLong, ///< it was not compiled
    tookTooLong,
    tookTooMuchMemory,
    tooManyMatches,
    textIsTooLong,
    cancelled,
};

/// A range of bytes; `end` is exclusive. A search rejects texts whose positions do not fit.
struct TextRange {
    std::uint32_t start = 0;
    std::uint32_t end = 0;

    std::string_view of(std::string_view text) const { return text.substr(start, end - start); }

    bool operator==(const TextRange&) const = default;
};

/// A match, or the part of it that a group captured.
struct Piece {
    TextRange range{};
    std::uint32_t group = 0; ///< the number of the group; 0 is the whole match

    bool operator==(const Piece&) const = default;
};

/// The result of a search. All matches share one list, because there may be millions of them.
struct Findings {
    std::shared_ptr<const std::string> text{}; ///< the searched text
    std::uint32_t groupCount = 0;              ///< the capture groups of the pattern
    /// For each match, in text order: the whole match, then its participating groups, in group order.
    std::vector<Piece> pieces{};
    std::vector<std::uint32_t> firstPieces{}; ///< the index in `pieces` of each match
    std::optional<Interruption> interruption{};

    std::size_t matchCount() const { return firstPieces.size(); }

    std::span<const Piece> match(std::size_t index) const;
};

/// The limits of a search; on exceeding one it ends with the matches found so far.
struct Budget {
    /// Processor time, so that load from other programs does not end a harmless search.
    std::chrono::milliseconds time{1000};
    /// In units of ten thousand alternatives saved for backtracking inside a match: less than a millisecond
    /// each, but, unlike time, the same on every machine.
    std::size_t steps = std::numeric_limits<std::size_t>::max();
    std::stop_token stop{};
};

/// The maximum memory, in bytes, for a match's backtracking stack: enough for `(a|b)*` on a megabyte.
inline constexpr std::int32_t stackLimit = 1 << 26;

/// The maximum number of pieces that a search collects (200 MB). A list with as many rows stays within the
/// coordinates of a window.
inline constexpr std::size_t maxPieces = std::size_t{1} << 24;

/// The maximum length of a pattern in bytes. Its character sets may use some hundred megabytes of memory.
inline constexpr std::size_t maxPatternSize = 100'000;

/// The maximum length, in bytes, of the result of `replacingMatches`.
inline constexpr std::size_t maxReplacedSize = std::size_t{1} << 27;

/// An upper bound for the number of character sets in `pattern`. They, more than its length, determine how
/// long it takes to compile: up to several milliseconds each.
std::size_t setCount(std::string_view pattern);

/// All matches of `pattern` in `text`, in order: `^` and `$` match only at the ends of the whole text, `.`
/// does not match line breaks. A match that begins or ends inside a character (within a surrogate pair, as
/// ICU counts) is omitted, and so is such a group. Fails if the pattern is faulty; exceeding the budget, even
/// before the first match, is an interruption.
std::expected<Findings, PatternError> search(std::string_view pattern, bool isCaseSensitive,
                                             std::shared_ptr<const std::string> text, const Budget& budget);

/// The text of `findings` with each match replaced by `replacement`: `$` and a number stand for the group of
/// that number, which has as many digits as follow, but at most as many as the maximum group number; a group
/// that does not exist or did not participate is empty. A backslash makes the next character literal. Other
/// characters are literal. None if the result would exceed `maxReplacedSize`.
std::optional<std::string> replacingMatches(const Findings& findings, std::string_view replacement);

struct InterruptionFacts {
    Interruption value;
    std::string_view rawValue; ///< the message for users
};

} // namespace korvane::RegularExpression

namespace korvane {

template <>
inline constexpr auto facts<RegularExpression::Interruption> =
    std::to_array<RegularExpression::InterruptionFacts>({
        {RegularExpression::Interruption::patternTookTooLong,
         "Matching stopped: the pattern takes too long to compile"},
        {RegularExpression::Interruption::tookTooLong,
         "Matching stopped: the pattern takes too long on this text"},
        {RegularExpression::Interruption::tookTooMuchMemory,
         "Matching stopped: the pattern takes too much memory on this text"},
        {RegularExpression::Interruption::tooManyMatches,
         "Matching stopped: the pattern matches too often in this text"},
        {RegularExpression::Interruption::textIsTooLong, "Matching stopped: the text is too long"},
        {RegularExpression::Interruption::cancelled, "Matching stopped"},
    });

} // namespace korvane
