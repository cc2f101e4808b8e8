#include "Utilities/Text/Lines.h"

#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace korvane {

namespace {

/// Whether none of the eight bytes at `bytes` can begin a newline: all are ASCII, and none is below U+000E.
bool isFreeOfNewlines(const char* bytes) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    constexpr std::uint64_t firstNonNewline = 0x0E0E0E0E0E0E0E0E;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    // A byte below 0x0E borrows from its own high bit. Its borrow from the next higher byte can only cause a
    // false positive there.
    return ((word | (word - firstNonNewline)) & highBits) == 0;
}

} // namespace

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t lineStart = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        if (offset + sizeof(std::uint64_t) <= text.size() && isFreeOfNewlines(text.data() + offset)) {
            offset += sizeof(std::uint64_t);
            continue;
        }
        // Decodes all eight bytes, instead of testing each overlapping group of eight.
        for (const auto groupEnd = offset + sizeof(std::uint64_t);
             offset < groupEnd && offset < text.size();) {
            const auto [character, end] = decodeAt(text, offset);
            if (isNewline(character)) {
                lines.push_back(text.substr(lineStart, offset - lineStart));
                lineStart = end;
            }
            offset = end;
        }
    }
    lines.push_back(text.substr(lineStart));
    return lines;
}

} // namespace korvane
