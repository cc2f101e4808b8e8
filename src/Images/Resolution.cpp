#include "Images/Resolution.h"

#include "Images/Vips.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

#include <zlib.h>

using vips::VImage;

namespace korvane {

namespace {

/// In dots per millimetre.
struct Resolution {
    double horizontal = 0;
    double vertical = 0;
};

std::uint32_t bigEndian(std::string_view bytes) {
    std::uint32_t value = 0;
    for (const char byte : bytes.substr(0, 4))
        value = value << 8 | static_cast<unsigned char>(byte);
    return value;
}

void writeBigEndian(std::uint32_t value, char* bytes) {
    for (const int shift : {24, 16, 8, 0})
        *bytes++ = static_cast<char>(value >> shift);
}

/// The offset of the content of a PNG file's "pHYs" chunk, which precedes the pixels (ISO/IEC 15948, section
/// 11.3.5.3): dots per unit horizontally and vertically, with 32 bits each, and the unit.
std::optional<std::size_t> resolutionChunk(std::string_view bytes) {
    constexpr std::size_t signatureBytes = 8, typeOffset = 4, headBytes = 8, checksumBytes = 4;
    constexpr std::size_t contentBytes = 9;
    for (std::size_t start = signatureBytes; start + headBytes + checksumBytes <= bytes.size();) {
        const std::size_t size = bigEndian(bytes.substr(start));
        const auto type = bytes.substr(start + typeOffset, 4);
        if (type == "IDAT" || size > bytes.size() - start - headBytes - checksumBytes)
            return std::nullopt;
        if (type == "pHYs")
            return size == contentBytes ? std::optional(start + headBytes) : std::nullopt;
        start += headBytes + size + checksumBytes;
    }
    return std::nullopt;
}

constexpr std::size_t verticalOffset = 4, unitOffset = 8; // in the chunk's content

/// The resolution that a PNG file states per metre. The library would prefer Exif data, if there are any.
std::optional<Resolution> resolutionInPNG(std::string_view bytes) {
    const auto chunk = resolutionChunk(bytes);
    if (!chunk || bytes[*chunk + unitOffset] != 1)
        return std::nullopt;
    return Resolution{bigEndian(bytes.substr(*chunk)) / 1000.0,
                      bigEndian(bytes.substr(*chunk + verticalOffset)) / 1000.0};
}

std::optional<Resolution> statedResolution(const VImage& image, std::string_view bytes, ImageFormat format) {
    if (format == ImageFormat::png)
        return resolutionInPNG(bytes);
    if (vips_image_get_typeof(image.get_image(), VIPS_META_RESOLUTION_UNIT) == 0)
        return std::nullopt;
    return Resolution{image.xres(), image.yres()};
}

} // namespace

VImage withStatedResolution(const VImage& image, std::string_view bytes, ImageFormat format) {
    const auto stated = statedResolution(image, bytes, format);
    const auto known = [&](double Resolution::* side) {
        return dotsPerMillimetre(stated ? dotsPerInch((*stated).*side) : defaultDPI);
    };
    return image.copy(VImage::option()
                          ->set("xres", known(&Resolution::horizontal))
                          ->set("yres", known(&Resolution::vertical)));
}

void fixVerticalResolutionInPNG(std::span<char> bytes, double verticalDotsPerMillimetre) {
    const auto chunk = resolutionChunk({bytes.data(), bytes.size()});
    if (!chunk)
        return;
    constexpr std::size_t typeBytes = 4, contentBytes = 9;
    char* content = bytes.data() + *chunk;
    writeBigEndian(static_cast<std::uint32_t>(std::lround(verticalDotsPerMillimetre * 1000)),
                   content + verticalOffset);
    const auto* checked = reinterpret_cast<const unsigned char*>(content - typeBytes);
    writeBigEndian(static_cast<std::uint32_t>(crc32(0, checked, typeBytes + contentBytes)),
                   content + contentBytes);
}

} // namespace korvane
