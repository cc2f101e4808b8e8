/// Common definitions for text: character sets, user-perceived characters, positions, locale-aware
/// comparison. All text is UTF-8; ICU provides the Unicode data. Positions are byte offsets unless stated
/// otherwise.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// The characters that end a line: LF, VT, FF, CR, NEL (U+0085), LS (U+2028) and PS (U+2029).
bool isNewline(char32_t character);

/// The horizontal white space: general category Zs, and the tab.
bool isWhitespace(char32_t character);

/// `text` without the white space at both of its ends; newlines stay.
std::string_view trimmingWhitespaces(std::string_view text);

/// `text` without the white space and newlines at both of its ends.
std::string_view trimmingWhitespacesAndNewlines(std::string_view text);

/// `text` for a single-line field: without the newlines at its end, and with a space for each other newline;
/// CR LF is one newline.
std::string onOneLine(std::string_view text);

/// Whether `text` is well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool isValidUTF8(std::string_view text);

/// The offset of the first byte that is not part of well-formed UTF-8, or the text's size. Several gigabytes
/// a second for ASCII, about one otherwise.
std::size_t validUTF8PrefixLength(std::string_view text);

/// The number of user-perceived characters (extended grapheme clusters, UAX #29); CR LF is one. Each
/// ill-formed sequence of bytes counts as one character. ASCII costs only a scan.
std::size_t characterCount(std::string_view text);

/// The number of pieces between newline characters, so at least one. A CR LF counts as two newlines.
std::size_t lineCount(std::string_view text);

/// The number of words, delimited by white space and newlines.
std::size_t wordCount(std::string_view text);

/// How many columns of a monospaced font `text` takes on one line at most: one for a code point of up to two
/// bytes, two for the others, which may be wide. ASCII costs only a scan.
std::size_t columnCount(std::string_view text);

/// A position in a text for display; line and column are counted from 1.
struct TextPosition {
    std::size_t line = 1;   ///< begins after each newline; unlike in `lineCount`, CR LF is one newline
    std::size_t column = 1; ///< in user-perceived characters
    bool operator==(const TextPosition&) const = default;
};

/// The position of the byte `offset` (at most the text's size) in `text`.
TextPosition positionAt(std::string_view text, std::size_t offset);

/// Whether `text` contains `pattern`, ignoring letter case by the rules of the user's locale. Canonically
/// equivalent spellings are equal; accents are not ignored. No text contains an empty pattern.
bool localizedCaseInsensitiveContains(std::string_view text, std::string_view pattern);

} // namespace korvane
