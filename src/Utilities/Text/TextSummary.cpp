#include "Utilities/Text/TextSummary.h"

#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace korvane {

namespace {

/// Bytes that are counted at once. The counts fit into a byte, which keeps the loops vectorised with all
/// lanes; their constant length keeps them so at every level of optimisation.
constexpr std::size_t blockSize = 128;

/// How many bytes before a byte decide about it: the lead byte of the longest form is three before its end.
constexpr std::size_t lookBack = 3;

struct ASCIIBlock {
    std::uint8_t newlines = 0;
    std::uint8_t bits = 0; ///< all bytes joined by "or"
};

ASCIIBlock scannedASCII(const char* bytes, std::size_t count) {
    ASCIIBlock block;
    for (std::size_t index = 0; index < count; ++index) {
        const auto byte = static_cast<std::uint8_t>(bytes[index]);
        block.bits |= byte;
        block.newlines = static_cast<std::uint8_t>(
            block.newlines + (static_cast<std::uint8_t>(byte - 0x0A) < 4 ? 1 : 0)); // LF, VT, FF, CR
    }
    return block;
}

/// The length of the ASCII at the start of `text`, in whole blocks except at its end. Adds its newlines.
std::size_t skipASCII(std::string_view text, std::size_t& newlines) {
    std::size_t offset = 0;
    while (offset < text.size()) {
        const auto count = std::min(blockSize, text.size() - offset);
        const auto block = count == blockSize ? scannedASCII(text.data() + offset, blockSize)
                                              : scannedASCII(text.data() + offset, count);
        if (block.bits >= 0x80)
            break;
        newlines += block.newlines;
        offset += count;
    }
    return offset;
}

struct UTF8Block {
    std::uint8_t newlines = 0;
    std::uint8_t utf16Units = 0;
    std::uint8_t isIllFormed = 0;
};

using Bytes = std::array<std::uint8_t, lookBack + blockSize>;

/// Counts in well-formed UTF-8, and finds out whether it is: each byte is compared with the three before it
/// (the Unicode Standard, table 3-7). The first three of `bytes` are those before the block. There are no
/// branches, and "or" between conditions is `|`, so that compilers vectorise it.
UTF8Block scannedUTF8(const Bytes& bytes) {
    UTF8Block block;
    for (std::size_t index = 0; index < blockSize; ++index) {
        const std::uint8_t before3 = bytes[index];
        const std::uint8_t before2 = bytes[index + 1];
        const std::uint8_t before1 = bytes[index + 2];
        const std::uint8_t byte = bytes[index + 3];
        const auto isTrail = static_cast<std::uint8_t>((byte & 0xC0) == 0x80);
        const auto mustBeTrail =
            static_cast<std::uint8_t>((before1 >= 0xC0) | (before2 >= 0xE0) | (before3 >= 0xF0));
        const auto isNoByte = static_cast<std::uint8_t>(((byte & 0xFE) == 0xC0) | (byte >= 0xF5));
        const auto isOutOfRange = static_cast<std::uint8_t>(
            ((before1 == 0xE0) & (byte < 0xA0)) | ((before1 == 0xED) & (byte >= 0xA0)) |
            ((before1 == 0xF0) & (byte < 0x90)) | ((before1 == 0xF4) & (byte >= 0x90)));
        block.isIllFormed |= static_cast<std::uint8_t>((isTrail ^ mustBeTrail) | isNoByte | isOutOfRange);
        block.utf16Units =
            static_cast<std::uint8_t>(block.utf16Units + static_cast<std::uint8_t>(isTrail ^ 1) +
                                      static_cast<std::uint8_t>(byte >= 0xF0));
        const auto isNewline = static_cast<std::uint8_t>(
            (static_cast<std::uint8_t>(byte - 0x0A) < 4) | ((before1 == 0xC2) & (byte == 0x85)) |
            ((before2 == 0xE2) & (before1 == 0x80) & ((byte & 0xFE) == 0xA8))); // NEL, LS and PS
        block.newlines = static_cast<std::uint8_t>(block.newlines + isNewline);
    }
    return block;
}

/// The summary of any text, one character after the other.
TextSummary scannedByCharacter(std::string_view text) {
    TextSummary summary;
    while (summary.bytes < text.size())
        summary += summaryOfCharacterAt(text, summary.bytes);
    return summary;
}

/// The summary of `text`, whose first byte begins a character.
TextSummary scanned(std::string_view text) {
    TextSummary summary{.bytes = text.size()};
    Bytes bytes{};
    // A block ends after the text, in at least three NULs: so a form that is cut off at the end lacks a trail
    // byte.
    for (std::size_t offset = 0; offset < text.size() + lookBack; offset += blockSize) {
        const auto piece = text.substr(std::min(offset, text.size()), blockSize);
        const auto padding = blockSize - piece.size();
        std::copy(piece.begin(), piece.end(), bytes.begin() + lookBack);
        std::fill_n(bytes.begin() + lookBack + piece.size(), padding, std::uint8_t{0});
        const auto block = scannedUTF8(bytes);
        if (block.isIllFormed != 0)
            return scannedByCharacter(text);
        summary.newlines += block.newlines;
        summary.utf16Units += block.utf16Units - padding;
        std::copy_n(bytes.begin() + blockSize, lookBack, bytes.begin());
    }
    return summary;
}

} // namespace

TextSummary& TextSummary::operator+=(const TextSummary& other) {
    bytes += other.bytes;
    newlines += other.newlines;
    utf16Units += other.utf16Units;
    illFormed += other.illFormed;
    return *this;
}

TextSummary summaryOf(std::string_view text) {
    TextSummary summary;
    summary.bytes = summary.utf16Units = skipASCII(text, summary.newlines);
    if (summary.bytes == text.size())
        return summary;
    return summary + scanned(text.substr(summary.bytes));
}

TextSummary summaryOfCharacterAt(std::string_view text, std::size_t offset) {
    const auto [character, end] = decodeAt(text, offset);
    const auto bytes = text.substr(offset, end - offset);
    const bool isIllFormed = character == U'\uFFFD' && bytes != "\uFFFD";
    return {.bytes = bytes.size(),
            .newlines = isNewline(character) ? 1U : 0U,
            .utf16Units = character > 0xFFFF ? 2U : 1U,
            .illFormed = isIllFormed ? 1U : 0U};
}

std::size_t characterStart(std::string_view text, std::size_t offset) {
    const auto isTrail = [&](std::size_t index) {
        return (static_cast<std::uint8_t>(text[index]) & 0xC0) == 0x80;
    };
    if (offset == text.size() || !isTrail(offset))
        return offset;
    // Every byte but a trail byte begins a character; a trail byte does unless such a character extends to
    // it.
    for (std::size_t back = 1; back <= lookBack && back <= offset; ++back) {
        if (!isTrail(offset - back))
            return decodeAt(text, offset - back).end > offset ? offset - back : offset;
    }
    return offset;
}

} // namespace korvane
