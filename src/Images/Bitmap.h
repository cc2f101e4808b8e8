/// Reader and writer for Windows bitmaps (BMP). The image library supports them only through a plug-in for
/// hundreds of formats.
#pragma once

#include "Utilities/ImageConverter.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane::Bitmap {

/// The encoding of a file's pixels.
enum class Compression : std::uint32_t {
    none = 0,
    runLength8 = 1,
    runLength4 = 2,
    masks = 3,
    alphaMasks = 6
};

/// The header of a file, checked against the file's length.
struct Header {
    int width = 0;
    int height = 0;
    bool isTopDown = false;
    int bitsPerPixel = 0; ///< 1, 4, 8, 16, 24 or 32
    Compression compression = Compression::none;
    std::array<std::uint32_t, 4> masks{}; ///< of red, green, blue and alpha, for 16 and 32 bits a pixel
    std::string_view palette{};           ///< for up to 8 bits a pixel
    int paletteEntryBytes = 4;            ///< blue, green, red, and except in OS/2 1 an unused byte
    std::string_view pixels{};            ///< from the first row to the end of the file
    std::string_view colorProfile{};
    double horizontalDPI = defaultDPI;
    double verticalDPI = defaultDPI;

    bool hasAlpha() const { return masks[3] != 0; }

    /// Whether there is a palette of grays only.
    bool isGray() const;

    int channels() const { return isGray() ? 1 : hasAlpha() ? 4 : 3; }
};

/// The header of the file, or none if it is not a bitmap, is truncated, or embeds a file of another format.
/// Supports the headers of OS/2 1 (12 bytes) and of Windows 3 to 5 (40 to 124 bytes).
std::optional<Header> readHeader(std::string_view bytes);

/// The pixels of a file with that header, or none if they are truncated or invalid. Throws `std::bad_alloc`
/// if memory does not suffice.
std::optional<Image> read(const Header& header);

/// A file with the picture, which has 8 bits a sample and 1, 3 or 4 channels: gray as a palette of 256 grays,
/// RGB as 24 bits a pixel, and RGB with alpha as 32 bits a pixel with masks. Throws `std::bad_alloc`.
SharedBytes write(const Image& image);

} // namespace korvane::Bitmap
