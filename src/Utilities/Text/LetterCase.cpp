#include "Utilities/Text/LetterCase.h"

#include "Utilities/Text/Characters.h"
#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>

#include <cstddef>
#include <cstdint>

namespace korvane {

namespace {

constexpr auto rootLocale = "";

bool isDelimiter(char32_t character) {
    return isWhitespace(character) || isNewline(character);
}

/// Calls `map` to append the mapped form of every word of `text`; the text between words is unchanged.
template <typename Map>
std::string mappingWords(std::string_view text, Map map) {
    std::string result;
    result.reserve(text.size());
    std::size_t wordStart = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const auto decoded = decodeAt(text, offset);
        if (isDelimiter(decoded.character)) {
            if (offset > wordStart)
                map(text.substr(wordStart, offset - wordStart), result);
            result += text.substr(offset, decoded.end - offset);
            wordStart = decoded.end;
        }
        offset = decoded.end;
    }
    if (wordStart < text.size())
        map(text.substr(wordStart), result);
    return result;
}

using CaseMapping = void (*)(const char* locale, std::uint32_t options, icu::StringPiece text,
                             icu::ByteSink& result, icu::Edits* edits, UErrorCode& status);

void appendMapped(std::string_view text, CaseMapping map, std::string& result) {
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    map(rootLocale, 0, icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink, nullptr,
        status);
}

} // namespace

std::string uppercased(std::string_view text) {
    std::string result;
    appendMapped(text, icu::CaseMap::utf8ToUpper, result);
    return result;
}

std::string lowercased(std::string_view text) {
    std::string result;
    appendMapped(text, icu::CaseMap::utf8ToLower, result);
    return result;
}

std::string capitalized(std::string_view text) {
    return mappingWords(text, [](std::string_view word, std::string& result) {
        // The whole word is lower-cased, as a sigma depends on the preceding characters.
        const auto first = firstCharacter(word);
        const auto lower = lowercased(word);
        appendMapped(first, icu::CaseMap::utf8ToUpper, result);
        result += std::string_view(lower).substr(lowercased(first).size());
    });
}

} // namespace korvane
