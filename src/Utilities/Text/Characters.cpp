#include "Utilities/Text/Characters.h"

#include "Utilities/Text/LetterCase.h"
#include "Utilities/Text/UTF8.h"

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <cstdint>
#include <optional>

namespace korvane {

namespace {

bool isCarriageReturnLineFeed(std::string_view text, std::size_t offset) {
    return text.substr(offset).starts_with("\r\n");
}

/// The number of CR LF pairs in the bytes from `start` to `end`; each pair is one character.
std::size_t lineFeedsAfterCarriageReturns(std::string_view text, std::size_t start, std::size_t end) {
    const auto run = text.substr(0, end);
    std::size_t pairs = 0;
    for (auto at = run.find('\n', start); at != std::string_view::npos; at = run.find('\n', at + 1)) {
        if (at > start && text[at - 1] == '\r')
            ++pairs;
    }
    return pairs;
}

/// The full rules. Opening the iterator costs far more than using it.
class ClusterRules {
public:
    ClusterRules() : m_iterator(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &m_status)) {}

    ~ClusterRules() {
        utext_close(m_text);
        ubrk_close(m_iterator);
    }

    ClusterRules(const ClusterRules&) = delete;
    ClusterRules& operator=(const ClusterRules&) = delete;

    /// Appends the end of each cluster of `window`, plus `start`.
    void appendEnds(std::string_view window, std::size_t start, std::vector<std::size_t>& ends) {
        m_text = utext_openUTF8(m_text, window.data(), static_cast<std::int64_t>(window.size()), &m_status);
        ubrk_setUText(m_iterator, m_text, &m_status);
        for (auto end = ubrk_next(m_iterator); end != UBRK_DONE; end = ubrk_next(m_iterator))
            ends.push_back(start + static_cast<std::size_t>(end));
    }

private:
    UErrorCode m_status = U_ZERO_ERROR;
    UText* m_text = nullptr;
    UBreakIterator* m_iterator;
};

/// Whether `character` is a single ASCII byte, the most frequent case.
bool isSingleASCII(std::string_view character) {
    return character.size() == 1 && static_cast<unsigned char>(character[0]) < 0x80;
}

/// The only code point of `character`, or none if there are several.
std::optional<UChar32> singleCodePoint(std::string_view character) {
    if (character.empty())
        return std::nullopt;
    const auto decoded = decodeAt(character, 0);
    return decoded.end == character.size() ? std::optional(static_cast<UChar32>(decoded.character))
                                           : std::nullopt;
}

/// Whether a code point has the property `isCase`, or is changed only by the other case mapping.
bool isOfCase(UChar32 codePoint, UProperty isCase, UProperty changesByOwn, UProperty changesByOther) {
    return u_hasBinaryProperty(codePoint, isCase) ||
           (!u_hasBinaryProperty(codePoint, changesByOwn) && u_hasBinaryProperty(codePoint, changesByOther));
}

/// Determines a character's class; marks after it do not matter.
UChar32 firstCodePoint(std::string_view character) {
    return static_cast<UChar32>(decodeAt(character, 0).character);
}

} // namespace

bool isAlwaysSeparate(char32_t character) {
    if (character < 0x300)
        return true;
    switch (u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_GRAPHEME_CLUSTER_BREAK)) {
    case U_GCB_OTHER: // emoji too: only code points not in this list join them
    case U_GCB_CONTROL:
    case U_GCB_LV:
    case U_GCB_LVT:
        return true;
    default:
        return false;
    }
}

std::string_view Characters::next() {
    if (m_taken < m_windowEnds.size())
        return take(m_windowEnds[m_taken++]);
    if (m_offset == m_text.size())
        return {};
    if (isCarriageReturnLineFeed(m_text, m_offset))
        return take(m_offset + 2);
    const auto first = decodeAt(m_text, m_offset);
    if (first.end == m_text.size())
        return take(first.end);
    if (isAlwaysSeparate(first.character) && isAlwaysSeparate(decodeAt(m_text, first.end).character))
        return take(first.end);
    openWindow(first.end);
    return take(m_windowEnds[m_taken++]);
}

std::size_t Characters::skipASCII() {
    if (m_taken < m_windowEnds.size())
        return 0;
    auto length = asciiPrefixLength(m_text.substr(m_offset));
    if (length > 0 && m_offset + length < m_text.size()) {
        --length;
        if (length > 0 && isCarriageReturnLineFeed(m_text, m_offset + length - 1))
            --length;
    }
    const auto start = m_offset;
    m_offset += length;
    return length - lineFeedsAfterCarriageReturns(m_text, start, m_offset);
}

std::string_view Characters::take(std::size_t end) {
    const auto character = m_text.substr(m_offset, end - m_offset);
    m_offset = end;
    return character;
}

/// Applies the rules up to the next certain boundary.
void Characters::openWindow(std::size_t firstEnd) {
    auto end = firstEnd;
    for (bool endIsSeparate = false; end < m_text.size();) {
        const auto following = decodeAt(m_text, end);
        const bool followingIsSeparate = isAlwaysSeparate(following.character);
        if (endIsSeparate && followingIsSeparate && !isCarriageReturnLineFeed(m_text, end - 1))
            break;
        endIsSeparate = followingIsSeparate;
        end = following.end;
    }
    thread_local ClusterRules rules;
    m_windowEnds.clear();
    m_taken = 0;
    rules.appendEnds(m_text.substr(m_offset, end - m_offset), m_offset, m_windowEnds);
}

std::vector<std::string_view> characters(std::string_view text) {
    std::vector<std::string_view> result;
    Characters walk(text);
    for (auto character = walk.next(); !character.empty(); character = walk.next())
        result.push_back(character);
    return result;
}

std::string_view firstCharacter(std::string_view text) {
    return Characters(text).next();
}

bool isUppercase(std::string_view character) {
    if (isSingleASCII(character))
        return character[0] >= 'A' && character[0] <= 'Z';
    if (const auto codePoint = singleCodePoint(character))
        return isOfCase(*codePoint, UCHAR_UPPERCASE, UCHAR_CHANGES_WHEN_UPPERCASED,
                        UCHAR_CHANGES_WHEN_LOWERCASED);
    return uppercased(character) == character && lowercased(character) != character;
}

bool isLowercase(std::string_view character) {
    if (isSingleASCII(character))
        return character[0] >= 'a' && character[0] <= 'z';
    if (const auto codePoint = singleCodePoint(character))
        return isOfCase(*codePoint, UCHAR_LOWERCASE, UCHAR_CHANGES_WHEN_LOWERCASED,
                        UCHAR_CHANGES_WHEN_UPPERCASED);
    return lowercased(character) == character && uppercased(character) != character;
}

bool isNumeric(std::string_view character) {
    return !character.empty() &&
           u_getIntPropertyValue(firstCodePoint(character), UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

bool isLetter(std::string_view character) {
    return !character.empty() && u_isUAlphabetic(firstCodePoint(character)) != 0;
}

} // namespace korvane
