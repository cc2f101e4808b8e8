/// How much a text holds, in the units that editors and accessibility count in. The summary of a text is the
/// sum of the summaries of its pieces, if no piece begins inside a character.
///
/// A character is a code point here, or a maximal ill-formed subsequence of bytes, which counts as the one
/// U+FFFD that ICU substitutes for it (`decodeAt`).
#pragma once

#include <cstddef>
#include <string_view>

namespace korvane {

struct TextSummary {
    std::size_t bytes = 0;
    std::size_t newlines = 0;   ///< characters of `isNewline`; CR LF is two
    std::size_t utf16Units = 0; ///< two for each character above U+FFFF, one for each other
    std::size_t illFormed = 0;  ///< maximal ill-formed subsequences

    TextSummary& operator+=(const TextSummary& other);

    friend TextSummary operator+(TextSummary left, const TextSummary& right) { return left += right; }

    bool operator==(const TextSummary&) const = default;
};

/// The summary of `text`. Several gigabytes a second, unless it has ill-formed bytes.
TextSummary summaryOf(std::string_view text);

/// The summary of the character that begins at `offset`, which is less than the text's size.
TextSummary summaryOfCharacterAt(std::string_view text, std::size_t offset);

/// The last offset, at most `offset`, at which a character of `text` begins or the text ends. Looks back
/// three bytes at most, so only the last three before `offset` need be in `text`.
std::size_t characterStart(std::string_view text, std::size_t offset);

} // namespace korvane
