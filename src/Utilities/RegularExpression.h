/// Regular expressions in ICU's syntax: what a pattern finds in a text, what stands wrong in a pattern, and a
/// text with all findings replaced. Whatever the pattern, a search ends in bounded time and memory.
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

/// Why a pattern could not be used.
struct PatternError {
    std::string_view fault; ///< a sentence without its full stop
    /// Which user-perceived character of the pattern the fault was noticed at, counted from 1; none where it
    /// is not known.
    std::optional<std::size_t> position{};

    /// Such as "Incorrectly nested parentheses at character 12."
    std::string errorDescription() const;

    bool operator==(const PatternError&) const = default;
};

/// Why a search ended before the end of the text.
enum class Interruption {
    patternTookTooLong, ///< it was not even compiled
    tookTooLong,
    tookTooMuchMemory,
    tooManyMatches,
    textIsTooLong,
    cancelled,
};

/// Bytes of a text, from `start` up to but without `end`. A search takes no text whose positions do not fit.
struct TextRange {
    std::uint32_t start = 0;
    std::uint32_t end = 0;

    std::string_view of(std::string_view text) const { return text.substr(start, end - start); }

    bool operator==(const TextRange&) const = default;
};

/// A match, or the part of it that a capture group took.
struct Piece {
    TextRange range{};
    std::uint32_t group = 0; ///< the number of the group; 0 is the whole match

    bool operator==(const Piece&) const = default;
};

/// What a search found. One list serves all matches, because there may be millions of them.
struct Findings {
    std::shared_ptr<const std::string> text{}; ///< what was searched
    std::uint32_t groupCount = 0;              ///< the capture groups of the pattern
    /// Of each match, in text order: the whole match, then those groups that took part in it, in group order.
    std::vector<Piece> pieces{};
    std::vector<std::uint32_t> firstPieces{}; ///< where in `pieces` each match begins
    std::optional<Interruption> interruption{};

    std::size_t matchCount() const { return firstPieces.size(); }

    std::span<const Piece> match(std::size_t index) const;
};

/// What a search may cost, beyond which it ends with what it has found.
struct Budget {
    /// Of the processor, so that a machine which is busy with other things does not end a harmless search.
    std::chrono::milliseconds time{1000};
    /// In units of ten thousand alternatives that were put off inside a match: less than a millisecond each,
    /// but, unlike time, the same on every machine.
    std::size_t steps = std::numeric_limits<std::size_t>::max();
    std::stop_token stop{};
};

/// The most memory, in bytes, for the alternatives that a match puts off: enough for `(a|b)*` on a megabyte.
inline constexpr std::int32_t stackLimit = 1 << 26;

/// The most pieces that a search collects (200 MB). All of them as rows of a list keep within the coordinates
/// of a window.
inline constexpr std::size_t maxPieces = std::size_t{1} << 24;

/// The longest pattern in bytes. Its character sets may take up some hundred megabytes of memory.
inline constexpr std::size_t maxPatternSize = 100'000;

/// The longest text, in bytes, that `replacingMatches` makes.
inline constexpr std::size_t maxReplacedSize = std::size_t{1} << 27;

/// How many character sets `pattern` has, estimated from above. They, more than its length, decide how long
/// it takes to compile: up to several milliseconds each.
std::size_t setCount(std::string_view pattern);

/// All matches of `pattern` in `text`, from its start to its end: `^` and `$` stand for the ends of the whole
/// text, `.` for no line break. A match that begins or ends inside a character (within a surrogate pair, as
/// ICU counts) is left out, and so is such a group. Fails if the pattern is faulty; what takes too long, even
/// before the first match, is an interruption.
std::expected<Findings, PatternError> search(std::string_view pattern, bool isCaseSensitive,
                                             std::shared_ptr<const std::string> text, const Budget& budget);

/// The text of `findings` with each match replaced by what `replacement` says: `$` and a number stand for the
/// group of that number, which has as many digits as there are, but no more than the highest number of a
/// group; a group that does not exist or took no part is empty. A backslash takes away the meaning of the
/// character behind it. All else stands for itself. None when the result would exceed `maxReplacedSize`.
std::optional<std::string> replacingMatches(const Findings& findings, std::string_view replacement);

struct InterruptionFacts {
    Interruption value;
    std::string_view rawValue; ///< what the user is told
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
