#include "Images/Resolution.h"

#include "Images/Vips.h"

#include <cstddef>
#include <cstdint>

using vips::VImage;

namespace korvane {

namespace {

/// Whether a PNG file states dots per metre: a chunk "pHYs" before the pixels, whose unit is 1 (ISO/IEC
/// 15948, section 11.3.5.3).
bool hasResolutionInPNG(std::string_view bytes) {
    constexpr std::size_t signatureBytes = 8, typeOffset = 4, contentOffset = 8, checksumBytes = 4;
    constexpr std::size_t unitOffset = 8, resolutionBytes = 9;
    for (auto rest = bytes.substr(signatureBytes); rest.size() >= contentOffset + checksumBytes;) {
        std::size_t size = 0;
        for (std::size_t i = 0; i < typeOffset; ++i)
            size = size << 8 | static_cast<unsigned char>(rest[i]);
        const auto type = rest.substr(typeOffset, 4);
        rest.remove_prefix(contentOffset);
        if (type == "IDAT" || size > rest.size() - checksumBytes)
            return false;
        if (type == "pHYs")
            return size == resolutionBytes && rest[unitOffset] == 1;
        rest.remove_prefix(size + checksumBytes);
    }
    return false;
}

bool hasResolution(const VImage& image, std::string_view bytes, ImageFormat format) {
    if (format == ImageFormat::png)
        return hasResolutionInPNG(bytes);
    return vips_image_get_typeof(image.get_image(), VIPS_META_RESOLUTION_UNIT) != 0;
}

} // namespace

VImage withStatedResolution(const VImage& image, std::string_view bytes, ImageFormat format) {
    const bool isStated = hasResolution(image, bytes, format);
    const auto known = [&](double stated) { return isStated ? dotsPerInch(stated) : defaultDPI; };
    return image.copy(VImage::option()
                          ->set("xres", dotsPerMillimetre(known(image.xres())))
                          ->set("yres", dotsPerMillimetre(known(image.yres()))));
}

} // namespace korvane
