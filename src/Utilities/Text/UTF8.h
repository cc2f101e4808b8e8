/// UTF-8 taken apart: code points and where they end. Knows nothing of what a code point means.
#pragma once

#include <cstddef>
#include <string_view>

namespace korvane {

/// A code point of a text and where it ends.
struct Decoded {
    char32_t character;
    std::size_t end;
};

/// What `decodeAt` does where the byte at `offset` is not ASCII.
Decoded decodeBeyondASCII(std::string_view text, std::size_t offset);

/// The code point that begins at `offset`; the replacement character stands for bytes that are not UTF-8.
inline Decoded decodeAt(std::string_view text, std::size_t offset) {
    const auto first = static_cast<unsigned char>(text[offset]);
    return first < 0x80 ? Decoded{first, offset + 1} : decodeBeyondASCII(text, offset);
}

/// The number of bytes at the start of `text` that are ASCII. Reads eight at a time.
std::size_t asciiPrefixLength(std::string_view text);

} // namespace korvane
