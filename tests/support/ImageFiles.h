/// Picture files written by the engine and by other libraries.
#pragma once

#include "Images/Vips.h"
#include "Utilities/ImageConverter.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace korvane::support {

/// The picture in a valid file.
inline Image decoded(std::string_view file) {
    const auto image = ImageConverter::decode(file, {});
    if (!image)
        throw std::runtime_error(std::string(errorDescription(image.error())));
    return *image;
}

/// The picture after writing it to a file and reading it back.
inline Image throughFile(const Image& image, ImageFormat format, double quality = 0.9) {
    return decoded(ImageConverter::convert(image, format, quality).value());
}

/// `image` as a file written by libvips, for a suffix with options.
inline std::string libraryFile(const vips::VImage& image, const char* suffix) {
    void* data = nullptr;
    std::size_t size = 0;
    image.write_to_buffer(suffix, &data, &size);
    std::string file(static_cast<const char*>(data), size);
    g_free(data);
    return file;
}

inline std::string bigEndian(std::uint32_t value) {
    std::string bytes;
    for (const int shift : {24, 16, 8, 0})
        bytes += static_cast<char>(value >> shift);
    return bytes;
}

/// A chunk of a PNG file, with its checksum (ISO/IEC 15948, annex D).
inline std::string chunk(const std::string& typeAndContent) {
    std::uint32_t checksum = 0xFFFFFFFF;
    for (const char byte : typeAndContent) {
        checksum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            checksum = checksum & 1 ? 0xEDB88320 ^ (checksum >> 1) : checksum >> 1;
    }
    return bigEndian(static_cast<std::uint32_t>(typeAndContent.size() - 4)) + typeAndContent +
           bigEndian(~checksum);
}

} // namespace korvane::support
