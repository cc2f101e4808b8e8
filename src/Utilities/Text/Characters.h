/// Iterates over user-perceived characters (extended grapheme clusters, UAX #29), and determines their
/// Unicode classes. Text.h counts them. A character is passed as UTF-8.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace korvane {

/// Whether there is always a boundary of user-perceived characters between two such code points, except CR
/// LF. Only other code points need the full rules.
bool isAlwaysSeparate(char32_t character);

/// Iterates once over a text, which must outlive it. CR LF is one character. The full rules apply only where
/// marks, emoji sequences and the like are possible; ASCII costs almost nothing.
class Characters {
public:
    explicit Characters(std::string_view text) : m_text(text) {}

    /// The next character, or an empty view at the end.
    std::string_view next();

    /// Skips ASCII characters and returns their number. The last one before other text is left for `next`, as
    /// a mark may belong to it.
    std::size_t skipASCII();

private:
    std::string_view take(std::size_t end);
    void openWindow(std::size_t firstEnd);

    std::string_view m_text;
    std::size_t m_offset = 0;
    std::vector<std::size_t> m_windowEnds{}; // ends of the characters in a window that needs the rules
    std::size_t m_taken = 0;                 // how many of these have been returned
};

/// The characters of `text` in order; their number is `characterCount`. They refer to `text`.
std::vector<std::string_view> characters(std::string_view text);

/// The first character of `text`, or an empty view if there is none.
std::string_view firstCharacter(std::string_view text);

/// Whether the character is a capital: a single code point with the property Uppercase, or one that
/// lower-casing changes and upper-casing does not. Caseless characters, such as ideographs, and the empty
/// text are neither upper-case nor lower-case.
bool isUppercase(std::string_view character);

/// The lower-case counterpart of `isUppercase`.
bool isLowercase(std::string_view character);

/// Whether the character begins with a code point that has a numeric value, such as a digit of any script, a
/// fraction, a Roman numeral or the ideograph for one.
bool isNumeric(std::string_view character);

/// Whether the character begins with a code point with the property Alphabetic.
bool isLetter(std::string_view character);

} // namespace korvane
