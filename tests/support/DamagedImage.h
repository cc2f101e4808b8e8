/// Properties of the image engine for arbitrary bytes, shared by tests and fuzzers.
#pragma once

#include "Utilities/ImageConverter.h"

#include <string>
#include <string_view>

namespace korvane::support {

/// The property that these bytes violate, in words; empty if none.
inline std::string brokenImageProperty(std::string_view bytes) {
    using namespace ImageConverter;
    const auto info = getImageInfo(bytes);
    const auto image = decode(bytes, {});
    if (!image)
        return {};
    if (!info)
        return "a file without facts is decoded";
    if (image->width != info->width || image->height != info->height)
        return "the picture has another size than its facts say";
    if (image->channels < 1 || image->channels > 4)
        return "the picture has channels that are not known";
    const auto turned = rotate(*image, Rotation::degrees90);
    if (!turned || turned->width != image->height)
        return "the picture cannot be turned";
    if (!preview(*image, 16))
        return "the picture cannot be shown";
    const auto png = convert(*image, ImageFormat::png, 1);
    if (!png)
        return "the picture cannot be written";
    const auto again = decode(*png, {});
    if (!again || again->width != image->width || again->height != image->height)
        return "what is written cannot be read";
    return {};
}

} // namespace korvane::support
