#include "Images/Bitmap.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvane::Bitmap {

namespace {

constexpr std::size_t fileHeaderBytes = 14;
constexpr std::size_t os2HeaderBytes = 12;
constexpr std::size_t windows3HeaderBytes = 40;
constexpr std::size_t masksHeaderBytes = 52;
constexpr std::size_t alphaMaskHeaderBytes = 56;
constexpr std::size_t os2SecondHeaderBytes = 64;
constexpr std::size_t windows4HeaderBytes = 108;
constexpr std::size_t windows5HeaderBytes = 124;
constexpr double inchesPerMetre = 1 / 0.0254;

/// "MBED": the file embeds a colour profile.
constexpr std::uint32_t embeddedProfile = 0x4D424544;

/// The little-endian number in the `count` bytes at `offset`, which must exist.
std::uint32_t number(std::string_view bytes, std::size_t offset, int count = 4) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i)
        value |= static_cast<std::uint32_t>(
                     static_cast<unsigned char>(bytes[offset + static_cast<std::size_t>(i)]))
                 << (8 * i);
    return value;
}

double dotsPerInch(std::uint32_t dotsPerMetre) {
    const auto resolution = std::round(dotsPerMetre / inchesPerMetre * 100) / 100;
    return isValidDPI(resolution) ? resolution : defaultDPI;
}

/// Reads the picture's size and depth; returns whether the size is valid.
bool readSize(Header& header, std::string_view information, std::size_t headerBytes) {
    if (headerBytes == os2HeaderBytes) {
        header.width = static_cast<std::uint16_t>(number(information, 4, 2));
        header.height = static_cast<std::uint16_t>(number(information, 6, 2));
        header.bitsPerPixel = static_cast<std::uint16_t>(number(information, 10, 2));
    } else {
        header.width = static_cast<std::int32_t>(number(information, 4));
        const auto height = static_cast<std::int32_t>(number(information, 8));
        header.isTopDown = height < 0;
        header.height = height == std::numeric_limits<std::int32_t>::min() ? 0 : std::abs(height);
        header.bitsPerPixel = static_cast<std::uint16_t>(number(information, 14, 2));
    }
    return header.width > 0 && header.height > 0;
}

/// Whether the compression supports this number of bits a pixel.
bool isValidCompression(const Header& header) {
    switch (header.compression) {
    case Compression::none:
        return std::ranges::count(std::to_array({1, 4, 8, 16, 24, 32}), header.bitsPerPixel) == 1;
    case Compression::runLength8:
        return header.bitsPerPixel == 8;
    case Compression::runLength4:
        return header.bitsPerPixel == 4;
    case Compression::masks:
    case Compression::alphaMasks:
        return header.bitsPerPixel == 16 || header.bitsPerPixel == 32;
    }
    return false;
}

/// Reads the masks of the channels; `information` extends to the end of the file. Returns how many bytes they
/// take after the header, or none if they are truncated.
std::optional<std::size_t> readMasks(Header& header, std::string_view information, std::size_t headerBytes) {
    const bool hasMasks =
        header.compression == Compression::masks || header.compression == Compression::alphaMasks;
    if (!hasMasks) {
        if (header.bitsPerPixel == 16)
            header.masks = {0x7C00, 0x03E0, 0x001F, 0};
        if (header.bitsPerPixel == 32)
            header.masks = {0xFF0000, 0xFF00, 0xFF, 0};
        return 0;
    }
    const bool isInHeader = headerBytes >= masksHeaderBytes;
    const bool hasAlphaMask =
        isInHeader ? headerBytes >= alphaMaskHeaderBytes : header.compression == Compression::alphaMasks;
    const std::size_t count = hasAlphaMask ? 4 : 3;
    if (information.size() < windows3HeaderBytes + 4 * count)
        return std::nullopt;
    for (std::size_t i = 0; i < count; ++i)
        header.masks[i] = number(information, windows3HeaderBytes + 4 * i);
    return isInHeader ? 0 : 4 * count;
}

/// Reads the palette after the header; it ends at `end`, where the pixels begin. An OS/2 palette has no
/// stated length and may have fewer entries than the pixels have values.
bool readPalette(Header& header, std::string_view information, std::size_t headerBytes, std::size_t offset,
                 std::size_t end) {
    if (header.bitsPerPixel > 8)
        return offset <= end;
    header.paletteEntryBytes = headerBytes == os2HeaderBytes ? 3 : 4;
    const std::size_t maxCount = std::size_t(1) << header.bitsPerPixel;
    const std::size_t stated = headerBytes == os2HeaderBytes ? 0 : number(information, 32);
    const auto count = stated == 0 ? maxCount : std::min(maxCount, stated);
    const auto entryBytes = static_cast<std::size_t>(header.paletteEntryBytes);
    const auto room = offset < end ? (end - offset) / entryBytes : 0;
    const bool mayBeShorter = headerBytes == os2HeaderBytes && room > 0;
    if (room < count && !mayBeShorter)
        return false;
    header.palette = information.substr(offset, std::min(count, room) * entryBytes);
    return true;
}

void readColorProfile(Header& header, std::string_view information, std::size_t headerBytes) {
    if (headerBytes < windows5HeaderBytes || number(information, 56) != embeddedProfile)
        return;
    const std::size_t offset = number(information, 112);
    const std::size_t size = number(information, 116);
    if (offset <= information.size() && size <= information.size() - offset)
        header.colorProfile = information.substr(offset, size);
}

bool isHeaderSize(std::size_t bytes) {
    return std::ranges::count(
               std::to_array({os2HeaderBytes, windows3HeaderBytes, masksHeaderBytes, alphaMaskHeaderBytes,
                              os2SecondHeaderBytes, windows4HeaderBytes, windows5HeaderBytes}),
               bytes) == 1;
}

} // namespace

bool Header::isGray() const {
    if (palette.empty())
        return false;
    for (std::size_t i = 0; i < palette.size(); i += static_cast<std::size_t>(paletteEntryBytes)) {
        if (palette[i] != palette[i + 1] || palette[i] != palette[i + 2])
            return false;
    }
    return true;
}

std::optional<Header> readHeader(std::string_view bytes) {
    if (!bytes.starts_with("BM") || bytes.size() < fileHeaderBytes + os2HeaderBytes)
        return std::nullopt;
    const auto information = bytes.substr(fileHeaderBytes);
    const std::size_t headerBytes = number(information, 0);
    if (!isHeaderSize(headerBytes) || information.size() < headerBytes)
        return std::nullopt;
    Header header;
    if (!readSize(header, information, headerBytes))
        return std::nullopt;
    if (headerBytes > os2HeaderBytes) {
        header.compression = Compression(number(information, 16));
        header.horizontalDPI = dotsPerInch(number(information, 24));
        header.verticalDPI = dotsPerInch(number(information, 28));
    }
    if (!isValidCompression(header) ||
        (headerBytes == os2SecondHeaderBytes &&
         header.compression == Compression::masks)) // means another encoding there
        return std::nullopt;
    const std::size_t start = number(bytes, 10);
    if (start < fileHeaderBytes + headerBytes || start > bytes.size())
        return std::nullopt;
    const auto maskBytes = readMasks(header, information, headerBytes);
    if (!maskBytes ||
        !readPalette(header, information, headerBytes, headerBytes + *maskBytes, start - fileHeaderBytes))
        return std::nullopt;
    readColorProfile(header, information, headerBytes);
    header.pixels = bytes.substr(start);
    return header;
}

} // namespace korvane::Bitmap
