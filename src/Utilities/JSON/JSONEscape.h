/// The escapes of characters in JSON strings: a single table for reading, writing and messages.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace korvane::JSON {

/// The letters of the two-character escapes, and the escaped characters at the same indices.
inline constexpr std::string_view escapeLetters = "\"\\/bfnrt";
inline constexpr std::string_view escapedCharacters = "\"\\/\b\f\n\r\t";

/// The escape of one ASCII character, in the short form if there is one.
class EscapeSequence {
public:
    static constexpr std::size_t bufferSize = 8; ///< readable bytes at its text, whatever its size

    constexpr EscapeSequence() = default;

    constexpr explicit EscapeSequence(char character) {
        constexpr std::string_view hexDigits = "0123456789abcdef";
        if (const auto index = escapedCharacters.find(character); index != std::string_view::npos) {
            m_text = {'\\', escapeLetters[index]};
            m_size = 2;
        } else {
            const auto code = static_cast<unsigned char>(character);
            m_text = {'\\', 'u', '0', '0', hexDigits[code >> 4], hexDigits[code & 0xF]};
            m_size = 6;
        }
    }

    constexpr std::string_view text() const { return {m_text.data(), m_size}; }

private:
    std::array<char, bufferSize> m_text{};
    std::size_t m_size = 0;
};

/// The escapes of all ASCII characters, by code.
inline constexpr auto escapeSequences = [] {
    std::array<EscapeSequence, 128> sequences{};
    for (std::size_t code = 0; code < sequences.size(); ++code)
        sequences[code] = EscapeSequence(static_cast<char>(code));
    return sequences;
}();

} // namespace korvane::JSON
