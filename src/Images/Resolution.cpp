#include "Images/Resolution.h"

#include "Images/Vips.h"

#include <cstddef>
#include <cstdint>
#include <optional>

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

/// What a PNG file states: a chunk "pHYs" before the pixels, whose unit is 1, the metre (ISO/IEC 15948,
/// section 11.3.5.3). The library prefers what Exif data say, if there are any.
std::optional<Resolution> resolutionInPNG(std::string_view bytes) {
    constexpr std::size_t signatureBytes = 8, typeOffset = 4, contentOffset = 8, checksumBytes = 4;
    constexpr std::size_t verticalOffset = 4, unitOffset = 8, resolutionBytes = 9;
    for (auto rest = bytes.substr(signatureBytes); rest.size() >= contentOffset + checksumBytes;) {
        const std::size_t size = bigEndian(rest);
        const auto type = rest.substr(typeOffset, 4);
        rest.remove_prefix(contentOffset);
        if (type == "IDAT" || size > rest.size() - checksumBytes)
            return std::nullopt;
        if (type == "pHYs") {
            if (size != resolutionBytes || rest[unitOffset] != 1)
                return std::nullopt;
            return Resolution{bigEndian(rest) / 1000.0, bigEndian(rest.substr(verticalOffset)) / 1000.0};
        }
        rest.remove_prefix(size + checksumBytes);
    }
    return std::nullopt;
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

} // namespace korvane
