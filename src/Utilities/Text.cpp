#include "Utilities/Text.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>

namespace korvane {

namespace {

/// A code point of a text and where it ends.
struct Decoded {
    char32_t character;
    std::size_t end;
};

/// The code point that begins at `offset`; the replacement character stands for bytes that are not UTF-8.
Decoded decodeAt(std::string_view text, std::size_t offset) {
    const auto first = static_cast<unsigned char>(text[offset]);
    if (first < 0x80)
        return {first, offset + 1};
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    UChar32 character = 0;
    std::size_t end = offset;
    U8_NEXT_OR_FFFD(bytes, end, text.size(), character);
    return {static_cast<char32_t>(character), end};
}

/// The offset of the code point that ends at `end` (more than 0); a byte that belongs to none stands for
/// itself.
std::size_t previousOffset(std::string_view text, std::size_t end) {
    auto offset = end - 1;
    while (offset > 0 && end - offset < 4 && U8_IS_TRAIL(static_cast<std::uint8_t>(text[offset])))
        --offset;
    return decodeAt(text, offset).end == end ? offset : end - 1;
}

bool isWhitespaceOrNewline(char32_t character) {
    return isWhitespace(character) || isNewline(character);
}

/// `text` without the characters at both of its ends that `isTrimmed` tells.
std::string_view trimming(std::string_view text, bool (*isTrimmed)(char32_t)) {
    std::size_t start = 0;
    while (start < text.size()) {
        const auto decoded = decodeAt(text, start);
        if (!isTrimmed(decoded.character))
            break;
        start = decoded.end;
    }
    std::size_t end = text.size();
    while (end > start) {
        const auto offset = previousOffset(text, end);
        if (!isTrimmed(decodeAt(text, offset).character))
            break;
        end = offset;
    }
    return text.substr(start, end - start);
}

/// The number of bytes at the start of `text` that are ASCII. Reads eight at a time.
std::size_t asciiPrefixLength(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::size_t length = 0;
    for (; length + sizeof(std::uint64_t) <= text.size(); length += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + length, sizeof word);
        if ((word & highBits) != 0)
            break;
    }
    while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80)
        ++length;
    return length;
}

/// Whether there is always a cluster boundary between the character and another such one, so that only the
/// rest needs the full rules. (CR and LF are told apart by the caller.)
bool standsAlone(char32_t character) {
    if (character < 0x300)
        return true;
    const auto codePoint = static_cast<UChar32>(character);
    return u_getIntPropertyValue(codePoint, UCHAR_GRAPHEME_CLUSTER_BREAK) == U_GCB_OTHER &&
           !u_hasBinaryProperty(codePoint, UCHAR_EXTENDED_PICTOGRAPHIC);
}

/// How many of the bytes from `start` to `end` are a LF behind a CR, which together are one character.
std::size_t lineFeedsAfterCarriageReturns(std::string_view text, std::size_t start, std::size_t end) {
    const auto run = text.substr(0, end);
    std::size_t pairs = 0;
    for (auto at = run.find('\n', start); at != std::string_view::npos; at = run.find('\n', at + 1)) {
        if (at > 0 && text[at - 1] == '\r')
            ++pairs;
    }
    return pairs;
}

/// Counts clusters by the full rules, in whatever windows of a text need them.
class ClusterCounter {
public:
    ClusterCounter() : m_iterator(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &m_status)) {}

    ~ClusterCounter() {
        utext_close(m_text);
        ubrk_close(m_iterator);
    }

    ClusterCounter(const ClusterCounter&) = delete;
    ClusterCounter& operator=(const ClusterCounter&) = delete;

    std::size_t count(std::string_view window) {
        m_text = utext_openUTF8(m_text, window.data(), static_cast<std::int64_t>(window.size()), &m_status);
        ubrk_setUText(m_iterator, m_text, &m_status);
        std::size_t clusters = 0;
        while (ubrk_next(m_iterator) != UBRK_DONE)
            ++clusters;
        return clusters;
    }

private:
    UErrorCode m_status = U_ZERO_ERROR;
    UText* m_text = nullptr;
    UBreakIterator* m_iterator;
};

icu::UnicodeString caseFolded(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* nfd = icu::Normalizer2::getNFDInstance(status);
    const std::string_view language = icu::Locale::getDefault().getLanguage();
    const bool dotlessI = language == "tr" || language == "az";
    auto folded = nfd->normalize(
        icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size()))),
        status);
    folded.foldCase(dotlessI ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT);
    return nfd->normalize(folded, status);
}

} // namespace

char32_t takeCodePoint(std::string_view& text) {
    const auto decoded = decodeAt(text, 0);
    text.remove_prefix(decoded.end);
    return decoded.character;
}

bool isNewline(char32_t character) {
    return (character >= 0x0A && character <= 0x0D) || character == 0x85 || character == 0x2028 ||
           character == 0x2029;
}

bool isWhitespace(char32_t character) {
    return character == '\t' || u_charType(static_cast<UChar32>(character)) == U_SPACE_SEPARATOR;
}

std::string_view trimmingWhitespaces(std::string_view text) {
    return trimming(text, isWhitespace);
}

std::string_view trimmingWhitespacesAndNewlines(std::string_view text) {
    return trimming(text, isWhitespaceOrNewline);
}

bool isValidUTF8(std::string_view text) {
    return validUTF8PrefixLength(text) == text.size();
}

std::size_t validUTF8PrefixLength(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t offset = 0;
    while (true) {
        offset += asciiPrefixLength(text.substr(offset));
        // Whoever writes one letter beyond ASCII writes more, so the next byte is asked for first.
        while (offset < text.size() && bytes[offset] >= 0x80) {
            auto end = offset;
            UChar32 character = 0;
            U8_NEXT(bytes, end, text.size(), character);
            if (character < 0)
                return offset;
            offset = end;
        }
        if (offset == text.size())
            return offset;
    }
}

std::size_t characterCount(std::string_view text) {
    std::unique_ptr<ClusterCounter> clusters;
    std::size_t count = 0;
    std::size_t previous = 0; // where the last counted code point begins
    for (std::size_t offset = 0; offset < text.size();) {
        if (const auto ascii = asciiPrefixLength(text.substr(offset)); ascii > 0) {
            count += ascii - lineFeedsAfterCarriageReturns(text, offset, offset + ascii);
            previous = offset + ascii - 1;
            offset += ascii;
            continue;
        }
        auto decoded = decodeAt(text, offset);
        if (standsAlone(decoded.character)) {
            ++count;
        } else {
            // The window takes one plain character from either side along: it may carry marks, or follow a
            // prefix.
            while (decoded.end < text.size() && !standsAlone(decoded.character))
                decoded = decodeAt(text, decoded.end);
            if (!clusters)
                clusters = std::make_unique<ClusterCounter>();
            count += clusters->count(text.substr(previous, decoded.end - previous)) - (offset > 0 ? 1 : 0);
            offset = previousOffset(text, decoded.end);
        }
        previous = offset;
        offset = decoded.end;
    }
    return count;
}

std::size_t lineCount(std::string_view text) {
    return positionAt(text, text.size()).line;
}

TextPosition positionAt(std::string_view text, std::size_t offset) {
    std::size_t line = 1;
    std::size_t lineStart = 0;
    for (std::size_t position = 0; position < offset;) {
        const auto decoded = decodeAt(text, position);
        if (isNewline(decoded.character)) {
            ++line;
            lineStart = decoded.end;
        }
        position = decoded.end;
    }
    lineStart = std::min(lineStart, offset);
    return {.line = line, .column = characterCount(text.substr(lineStart, offset - lineStart)) + 1};
}

bool localizedCaseInsensitiveContains(std::string_view text, std::string_view pattern) {
    return !pattern.empty() && caseFolded(text).indexOf(caseFolded(pattern)) >= 0;
}

} // namespace korvane
