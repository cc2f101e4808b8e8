#include "Utilities/JSON/JSONBlock.h"
#include "Utilities/JSON/JSONEscape.h"
#include "Utilities/JSON/JSONReader.h"

#include <unicode/utf8.h>

#include <array>
#include <cstdint>

namespace korvane::JSON {

namespace {

constexpr bool isVisible(char character) {
    return character > ' ' && character < '\x7F';
}

constexpr std::string_view expectedEscape = "one of \" \\ / b f n r t u after the backslash";

/// The length of `\uXXXX`.
constexpr std::size_t codeUnitSize = 6;

/// The number of hexadecimal digits at the start of `text`, at most four, and their value.
struct HexDigits {
    std::size_t count = 0;
    char32_t value = 0;
};

HexDigits hexDigits(std::string_view text) {
    HexDigits digits;
    for (const char character : text.substr(0, 4)) {
        const auto letter = static_cast<char>(character | 0x20);
        if (isDigit(character))
            digits.value = digits.value * 16 + static_cast<char32_t>(character - '0');
        else if (letter >= 'a' && letter <= 'f')
            digits.value = digits.value * 16 + static_cast<char32_t>(letter - 'a' + 10);
        else
            break;
        ++digits.count;
    }
    return digits;
}

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

void appendUTF8(std::string& text, char32_t character) {
    std::array<std::uint8_t, U8_MAX_LENGTH> bytes{};
    std::size_t size = 0;
    U8_APPEND_UNSAFE(bytes, size, character);
    text.append(reinterpret_cast<const char*>(bytes.data()), size);
}

} // namespace

/// Reads the escape at the current position and appends its character to the string.
bool Reader::readEscape() {
    if (m_end - m_next < 2) {
        ++m_next;
        return failHere(expectedEscape);
    }
    if (m_next[1] == 'u')
        return readUnicodeEscape();
    const auto index = escapeLetters.find(m_next[1]);
    if (index == std::string_view::npos)
        return fail(ParseError::Kind::invalidEscape, m_next, expectedEscape, isVisible(m_next[1]) ? 2 : 1);
    m_unescaped += escapedCharacters[index];
    m_next += 2;
    return true;
}

/// Reads `\u` and four digits, or two of these if the first is a high surrogate.
bool Reader::readUnicodeEscape() {
    const auto* const start = m_next;
    char32_t character = 0;
    if (!readCodeUnit(character))
        return false;
    if (isHighSurrogate(character) && std::string_view(m_next, m_end).starts_with("\\u")) {
        char32_t low = 0;
        if (!readCodeUnit(low))
            return false;
        if (isLowSurrogate(low))
            character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
    }
    if (isHighSurrogate(character) || isLowSurrogate(character))
        return fail(ParseError::Kind::loneSurrogate, start, "a high and a low surrogate together",
                    codeUnitSize);
    appendUTF8(m_unescaped, character);
    return true;
}

bool Reader::readCodeUnit(char32_t& unit) {
    const auto digits = hexDigits({m_next + 2, m_end});
    if (digits.count < 4)
        return fail(ParseError::Kind::invalidEscape, m_next, "four hexadecimal digits after \\u",
                    2 + digits.count);
    unit = digits.value;
    m_next += codeUnitSize;
    return true;
}

} // namespace korvane::JSON
