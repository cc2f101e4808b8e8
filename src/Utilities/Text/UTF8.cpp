#include "Utilities/Text/UTF8.h"

#include <unicode/utf8.h>

#include <cstdint>
#include <cstring>

namespace korvane {

Decoded decodeBeyondASCII(std::string_view text, std::size_t offset) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    UChar32 character = 0;
    std::size_t end = offset;
    U8_NEXT_OR_FFFD(bytes, end, text.size(), character);
    return {static_cast<char32_t>(character), end};
}

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

} // namespace korvane
