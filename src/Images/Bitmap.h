/// Windows bitmaps (BMP), read and written here: the image library knows them only through a plug-in for
/// hundreds of formats.
#pragma once

#include "Utilities/ImageConverter.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane::Bitmap {

/// How the pixels of a file lie.
enum class Compression : std::uint32_t {
    none = 0,
    runLength8 = 1,
    runLength4 = 2,
    masks = 3,
    alphaMasks = 6
};

/// What the head of a file says. All of it has been checked against the file's length.
struct Header {
    int width = 0;
    int height = 0;
    bool isTopDown = false;
    int bitsPerPixel = 0; ///< 1, 4, 8, 16, 24 or 32
    Compression compression = Compression::none;
    std::array<std::uint32_t, 4> masks{}; ///< of red, green, blue and alpha, for 16 and 32 bits a pixel
    std::string_view palette{};           ///< up to 8 bits a pixel
    int paletteEntryBytes = 4; ///< blue, green, red, and in all but the oldest files a byte to spare
    std::string_view pixels{}; ///< from the first row to the end of the file
    std::string_view colorProfile{};
    double horizontalDPI = defaultDPI;
    double verticalDPI = defaultDPI;

    bool hasAlpha() const { return masks[3] != 0; }

    /// Whether a palette has no colours, only grays.
    bool isGray() const;

    int channels() const { return isGray() ? 1 : hasAlpha() ? 4 : 3; }
};

/// The head of the file, or none if it is no bitmap, one with an embedded file of another format, or cut off.
/// Reads the headers of OS/2 1 (12 bytes) and of Windows 3 to 5 (40 to 124 bytes).
std::optional<Header> readHeader(std::string_view bytes);

/// The pixels of a file with that head, or none if they end before the picture does or cannot be as they are.
std::optional<Image> read(const Header& header);

/// A file with the picture, which has 8 bits a sample and 1, 3 or 4 channels: gray with a palette of 256
/// grays, RGB with 24 bits a pixel, and with alpha 32 bits a pixel and masks.
std::string write(const Image& image);

} // namespace korvane::Bitmap
