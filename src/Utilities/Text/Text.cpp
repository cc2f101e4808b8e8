#include "Utilities/Text/Text.h"

#include "Utilities/Text/Characters.h"
#include "Utilities/Text/UTF8.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace korvane {

namespace {

/// The offset of the code point that ends at `end` (more than 0); an invalid byte counts as one code point.
std::size_t previousOffset(std::string_view text, std::size_t end) {
    auto offset = end - 1;
    while (offset > 0 && end - offset < 4 && U8_IS_TRAIL(static_cast<std::uint8_t>(text[offset])))
        --offset;
    return decodeAt(text, offset).end == end ? offset : end - 1;
}

bool isWhitespaceOrNewline(char32_t character) {
    return isWhitespace(character) || isNewline(character);
}

/// `text` without the characters at both of its ends that satisfy `isTrimmed`.
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

/// Whether `index` is not between a letter and its accent, which are two code points in a decomposed text.
bool isBoundary(const icu::UnicodeString& text, std::int32_t index) {
    return index == 0 || index == text.length() ||
           !u_hasBinaryProperty(text.char32At(index), UCHAR_GRAPHEME_EXTEND);
}

} // namespace

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

std::string onOneLine(std::string_view text) {
    while (!text.empty()) {
        const auto last = previousOffset(text, text.size());
        if (!isNewline(decodeAt(text, last).character))
            break;
        text = text.substr(0, last);
    }
    std::string line;
    line.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        const auto decoded = decodeAt(text, offset);
        if (!isNewline(decoded.character))
            line += text.substr(offset, decoded.end - offset);
        else if (!text.substr(offset).starts_with("\r\n"))
            line += ' '; // a CR LF is replaced at its LF
        offset = decoded.end;
    }
    return line;
}

bool isValidUTF8(std::string_view text) {
    return validUTF8PrefixLength(text) == text.size();
}

std::size_t validUTF8PrefixLength(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t offset = 0;
    while (true) {
        offset += asciiPrefixLength(text.substr(offset));
        // Non-ASCII letters usually occur in sequence, so the next byte is tested first.
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
    Characters characters(text);
    std::size_t count = characters.skipASCII();
    while (!characters.next().empty())
        count += 1 + characters.skipASCII();
    return count;
}

std::size_t lineCount(std::string_view text) {
    std::size_t lines = 1;
    for (std::size_t offset = 0; offset < text.size();) {
        const auto decoded = decodeAt(text, offset);
        lines += isNewline(decoded.character) ? 1U : 0U;
        offset = decoded.end;
    }
    return lines;
}

std::size_t wordCount(std::string_view text) {
    std::size_t words = 0;
    bool inWord = false;
    for (std::size_t offset = 0; offset < text.size();) {
        const auto decoded = decodeAt(text, offset);
        const bool wasInWord = std::exchange(inWord, !isWhitespaceOrNewline(decoded.character));
        words += inWord && !wasInWord ? 1 : 0;
        offset = decoded.end;
    }
    return words;
}

std::size_t columnCount(std::string_view text) {
    auto columns = asciiPrefixLength(text);
    for (const char byte : text.substr(columns)) {
        const auto code = static_cast<unsigned char>(byte);
        columns += (code & 0xC0) == 0x80 ? 0U : code >= 0xE0 ? 2U : 1U;
    }
    return columns;
}

TextPosition positionAt(std::string_view text, std::size_t offset) {
    std::size_t line = 1;
    std::size_t lineStart = 0;
    for (std::size_t position = 0; position < offset;) {
        const auto decoded = decodeAt(text, position);
        const bool isInsidePair = decoded.character == '\r' && text.substr(decoded.end).starts_with('\n');
        if (isNewline(decoded.character) && !isInsidePair) {
            ++line;
            lineStart = decoded.end;
        }
        position = decoded.end;
    }
    lineStart = std::min(lineStart, offset);
    return {.line = line, .column = characterCount(text.substr(lineStart, offset - lineStart)) + 1};
}

bool localizedCaseInsensitiveContains(std::string_view text, std::string_view pattern) {
    const auto folded = caseFolded(text);
    const auto wanted = caseFolded(pattern);
    if (wanted.isEmpty())
        return false;
    for (auto start = folded.indexOf(wanted); start >= 0; start = folded.indexOf(wanted, start + 1)) {
        if (isBoundary(folded, start) && isBoundary(folded, start + wanted.length()))
            return true;
    }
    return false;
}

} // namespace korvane
