/// Decodes UTF-8 into code points. Independent of the meaning of code points.
#pragma once

#include <cstddef>
#include <string_view>

namespace korvane {

/// A code point of a text and where it ends.
struct Decoded {
    char32_t character;
    std::size_t end;
};

/// The slow path of `decodeAt`, for a non-ASCII byte at `offset`.
Decoded decodeBeyondASCII(std::string_view text, std::size_t offset);

/// The code point that begins at `offset`; bytes that are not UTF-8 give the replacement character.
inline Decoded decodeAt(std::string_view text, std::size_t offset) {
    const auto first = static_cast<unsigned char>(text[offset]);
    return first < 0x80 ? Decoded{first, offset + 1} : decodeBeyondASCII(text, offset);
}

/// The number of bytes at the start of `text` that are ASCII. Reads eight at a time.
std::size_t asciiPrefixLength(std::string_view text);

} // namespace korvane
