/// Text as the engines and screens mean it, named once: character sets, user-perceived characters, positions,
/// locale-aware comparison. All text is UTF-8; the Unicode knowledge is ICU's. Positions are byte offsets
/// unless a name says otherwise.
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

/// `text` as a field of one line takes it: without the newlines at its end, and with a space for each other
/// one; CR LF is one newline.
std::string onOneLine(std::string_view text);

/// Whether `text` is well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool isValidUTF8(std::string_view text);

/// The offset of the first byte that no well-formed character covers, or the text's size. Several gigabytes a
/// second while the text is ASCII, about one otherwise.
std::size_t validUTF8PrefixLength(std::string_view text);

/// The number of user-perceived characters (extended grapheme clusters, UAX #29); CR LF is one. Bytes that
/// are not UTF-8 count as one character a replaced sequence. Costs nothing but a scan while the text is
/// ASCII.
std::size_t characterCount(std::string_view text);

/// The number of pieces between newline characters, so at least one. A CR LF counts as two newlines.
std::size_t lineCount(std::string_view text);

/// The number of words: what white space and newlines delimit.
std::size_t wordCount(std::string_view text);

/// A place in a text as people name it, both counted from 1.
struct TextPosition {
    std::size_t line = 1; ///< after each newline begins another; unlike in `lineCount`, CR LF is one newline
    std::size_t column = 1; ///< in user-perceived characters
    bool operator==(const TextPosition&) const = default;
};

/// The place of the byte `offset` (at most the text's size) in `text`.
TextPosition positionAt(std::string_view text, std::size_t offset);

/// Whether `text` contains `pattern`, ignoring letter case by the rules of the user's locale. Canonically
/// equivalent spellings are the same; accents count. An empty pattern is contained in nothing.
bool localizedCaseInsensitiveContains(std::string_view text, std::string_view pattern);

} // namespace korvane
