#include "Utilities/TextTransformer.h"

#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ranges>

namespace korvane::TextTransformer {

namespace {

/// The properties of a code point that the statistics use.
struct Kind {
    bool isSpace = false; ///< white space or a newline
    bool isNewline = false;
    bool isMark = false;
};

constexpr auto asciiKinds = [] {
    std::array<Kind, 0x80> kinds{};
    for (std::size_t i = '\t'; i <= '\r'; ++i)
        kinds[i] = {.isSpace = true, .isNewline = i != '\t'};
    kinds[' '].isSpace = true;
    for (const auto mark : {'.', '!', '?'})
        kinds[static_cast<std::size_t>(mark)].isMark = true;
    return kinds;
}();

Kind kindOf(char32_t character) {
    if (character < asciiKinds.size())
        return asciiKinds[character];
    const bool endsLine = isNewline(character);
    return {.isSpace = endsLine || isWhitespace(character), .isNewline = endsLine};
}

/// Whether white space after `previous` starts a new character. It does not if it is the LF of a CR LF, or a
/// space after a prepended mark (such as the Arabic number sign), which joins it.
bool spaceStartsCharacter(char32_t previous, char32_t space) {
    constexpr char32_t firstPrefix = 0x600;
    if (previous < firstPrefix)
        return previous != '\r' || space != '\n';
    return u_getIntPropertyValue(static_cast<UChar32>(previous), UCHAR_GRAPHEME_CLUSTER_BREAK) !=
               U_GCB_PREPEND ||
           u_charType(static_cast<UChar32>(space)) != U_SPACE_SEPARATOR;
}

/// Depends on the whole text, but inspects only its line feeds and the ends of the pieces between them.
std::int64_t paragraphCount(std::string_view text) {
    constexpr std::string_view delimiter = "\n\n";
    std::int64_t count = 0;
    for (std::size_t start = 0; start <= text.size();) {
        const auto end = std::min(text.find(delimiter, start), text.size());
        if (!trimmingWhitespacesAndNewlines(text.substr(start, end - start)).empty())
            ++count;
        start = end + delimiter.size();
    }
    return count;
}

/// The additive counts of `text`: `lines` counts newlines, `sentences` runs of marks; `paragraphs` stays 0.
TextStats sumsOf(std::string_view text) {
    TextStats sums;
    std::int64_t spaces = 0;
    bool inWord = false;
    bool inMarks = false;
    char32_t previous = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const auto [character, end] = decodeAt(text, offset);
        const auto kind = kindOf(character);
        if (kind.isSpace) {
            spaces += spaceStartsCharacter(previous, character) ? 1 : 0;
            sums.lines += kind.isNewline ? 1 : 0;
        } else {
            sums.words += inWord ? 0 : 1;
            sums.sentences += kind.isMark && !inMarks ? 1 : 0;
        }
        inWord = !kind.isSpace;
        inMarks = kind.isMark;
        previous = character;
        offset = end;
    }
    sums.characters = static_cast<std::int64_t>(characterCount(text));
    sums.charactersNoSpaces = sums.characters - spaces;
    return sums;
}

/// Adds `other` multiplied by `sign`.
void add(TextStats& sums, const TextStats& other, std::int64_t sign) {
    sums.characters += sign * other.characters;
    sums.charactersNoSpaces += sign * other.charactersNoSpaces;
    sums.words += sign * other.words;
    sums.lines += sign * other.lines;
    sums.sentences += sign * other.sentences;
}

TextStats statsOf(TextStats sums, std::string_view text) {
    if (text.empty())
        return {};
    sums.lines += 1;
    sums.paragraphs = paragraphCount(text);
    if (sums.sentences == 0 && sums.words > 0)
        sums.sentences = 1;
    return sums;
}

/// Whether `offset` is a character boundary whatever the rest of the text: after a line feed, and between
/// ASCII characters other than CR LF.
bool isSafeSplit(std::string_view text, std::size_t offset) {
    if (offset == 0 || offset == text.size() || text[offset - 1] == '\n')
        return true;
    const auto around = text.substr(offset - 1, 2);
    return asciiPrefixLength(around) == around.size() && around != "\r\n";
}

/// The length of a common prefix after which both texts can be split safely.
std::size_t commonPrefix(std::string_view a, std::string_view b) {
    auto length = static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
    // `isSafeSplit` inspects the byte after the offset too, which must be common to both texts.
    length -= length > 0 ? 1 : 0;
    while (!isSafeSplit(a, length))
        --length;
    return length;
}

/// The length of a common suffix, for texts whose common prefix has been removed.
std::size_t commonSuffix(std::string_view a, std::string_view b) {
    const auto reversedA = std::views::reverse(a);
    auto length = static_cast<std::size_t>(std::ranges::mismatch(reversedA, std::views::reverse(b)).in1 -
                                           reversedA.begin());
    length -= length > 0 ? 1 : 0;
    while (!isSafeSplit(a, a.size() - length))
        --length;
    return length;
}

} // namespace

TextStats getStats(std::string_view text) {
    return statsOf(sumsOf(text), text);
}

/// The characters on either side of a split are the same in both texts. A split word or run of marks is
/// counted in both of its halves, equally often in the old and the new part, so the errors cancel out.
void RunningStats::update(std::string_view before, std::string_view text) {
    const auto prefix = commonPrefix(before, text);
    auto oldPart = before.substr(prefix);
    auto newPart = text.substr(prefix);
    const auto suffix = commonSuffix(oldPart, newPart);
    oldPart.remove_suffix(suffix);
    newPart.remove_suffix(suffix);
    add(m_sums, sumsOf(oldPart), -1);
    add(m_sums, sumsOf(newPart), 1);
    m_stats = statsOf(m_sums, text);
}

} // namespace korvane::TextTransformer
