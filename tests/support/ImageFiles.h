/// Files of pictures, as the engine and as others write them.
#pragma once

#include "Images/Vips.h"
#include "Utilities/ImageConverter.h"

#include <stdexcept>
#include <string>

namespace korvane::support {

/// The picture in a file, which must be good.
inline Image decoded(const std::string& file) {
    const auto image = ImageConverter::decode(file, {});
    if (!image)
        throw std::runtime_error(std::string(errorDescription(image.error())));
    return *image;
}

/// The picture as it comes back from a file.
inline Image throughFile(const Image& image, ImageFormat format, double quality = 0.9) {
    return decoded(ImageConverter::convert(image, format, quality).value());
}

/// A file that the image library writes of `image`, by the suffix of its format and options.
inline std::string libraryFile(const vips::VImage& image, const char* suffix) {
    void* data = nullptr;
    std::size_t size = 0;
    image.write_to_buffer(suffix, &data, &size);
    std::string file(static_cast<const char*>(data), size);
    g_free(data);
    return file;
}

} // namespace korvane::support
