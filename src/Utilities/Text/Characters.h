/// User-perceived characters (extended grapheme clusters, UAX #29) one by one, and the classes that Unicode
/// puts them into. Counting them is in Text.h. A character is passed as its UTF-8.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace korvane {

/// Walks once through a text, which must outlive it. CR LF is one character. Only where marks, emoji
/// sequences and their like are possible are the full rules asked; ASCII costs next to nothing.
class Characters {
public:
    explicit Characters(std::string_view text) : m_text(text) {}

    /// The next character, or nothing at the end.
    std::string_view next();

    /// Passes over the ASCII that needs no rules, and returns how many characters that were. The last one in
    /// front of other text is left for `next`, as a mark may belong to it.
    std::size_t skipASCII();

private:
    std::string_view take(std::size_t end);
    void openWindow(std::size_t firstEnd);

    std::string_view m_text;
    std::size_t m_offset = 0;
    std::vector<std::size_t> m_windowEnds{}; // where the characters of the window end that needed the rules
    std::size_t m_taken = 0;                 // how many of these have been handed out
};

/// The characters of `text` in order, as many as `characterCount` says. They refer to `text`.
std::vector<std::string_view> characters(std::string_view text);

/// The first character of `text`, or nothing if there is none.
std::string_view firstCharacter(std::string_view text);

/// Whether the character is a capital: a single code point with the property Uppercase, or such that
/// lower-casing changes it and upper-casing does not. What has no case, such as an ideograph, is neither this
/// nor lower-case, and nor is the empty text.
bool isUppercase(std::string_view character);

/// The mirror of `isUppercase`.
bool isLowercase(std::string_view character);

/// Whether the character begins with a code point that has a numeric value, such as a digit of any script, a
/// fraction, a Roman numeral or the ideograph for one.
bool isNumeric(std::string_view character);

/// Whether the character begins with a code point that has the property Alphabetic.
bool isLetter(std::string_view character);

} // namespace korvane
