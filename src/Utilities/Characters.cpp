#include "Utilities/Characters.h"

#include "Utilities/Text.h"

#include <unicode/locid.h>
#include <unicode/stringpiece.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace korvane {

namespace {

using BreakIterator = std::unique_ptr<UBreakIterator, decltype(&ubrk_close)>;
using TextView = std::unique_ptr<UText, decltype(&utext_close)>;

bool isASCII(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// The characters of a text without anything that joins, but for CR LF.
std::vector<std::string_view> asciiCharacters(std::string_view text) {
    std::vector<std::string_view> result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = text.starts_with("\r\n") ? 2 : 1;
        result.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return result;
}

/// The first code point of a character, and whether there are more.
struct Beginning {
    UChar32 codePoint = 0;
    bool isWhole = false;
};

Beginning beginningOf(std::string_view character) {
    const auto codePoint = static_cast<UChar32>(takeCodePoint(character));
    return {.codePoint = codePoint, .isWhole = character.empty()};
}

icu::UnicodeString unicodeString(std::string_view text) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

bool isLowerCasingChanging(std::string_view character) {
    const auto text = unicodeString(character);
    return icu::UnicodeString(text).toLower(icu::Locale::getRoot()) != text;
}

bool isUpperCasingChanging(std::string_view character) {
    const auto text = unicodeString(character);
    return icu::UnicodeString(text).toUpper(icu::Locale::getRoot()) != text;
}

} // namespace

std::vector<std::string_view> characters(std::string_view text) {
    if (isASCII(text))
        return asciiCharacters(text);
    UErrorCode status = U_ZERO_ERROR;
    const BreakIterator iterator(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status), ubrk_close);
    const TextView view(utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status),
                        utext_close);
    ubrk_setUText(iterator.get(), view.get(), &status);
    std::vector<std::string_view> result;
    std::size_t start = 0;
    for (auto end = ubrk_next(iterator.get()); end != UBRK_DONE; end = ubrk_next(iterator.get())) {
        result.push_back(text.substr(start, static_cast<std::size_t>(end) - start));
        start = static_cast<std::size_t>(end);
    }
    return result;
}

bool isUppercase(std::string_view character) {
    const auto beginning = beginningOf(character);
    if (beginning.isWhole)
        return u_hasBinaryProperty(beginning.codePoint, UCHAR_UPPERCASE) != 0;
    return isLowerCasingChanging(character) && !isUpperCasingChanging(character);
}

bool isLowercase(std::string_view character) {
    const auto beginning = beginningOf(character);
    if (beginning.isWhole)
        return u_hasBinaryProperty(beginning.codePoint, UCHAR_LOWERCASE) != 0;
    return isUpperCasingChanging(character) && !isLowerCasingChanging(character);
}

bool isNumeric(std::string_view character) {
    return u_getIntPropertyValue(beginningOf(character).codePoint, UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

bool isLetter(std::string_view character) {
    return u_hasBinaryProperty(beginningOf(character).codePoint, UCHAR_ALPHABETIC) != 0;
}

} // namespace korvane
