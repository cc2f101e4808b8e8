#include "Images/Bitmap.h"

#include <cmath>

namespace korvane::Bitmap {

namespace {

constexpr std::uint32_t fileHeaderBytes = 14;
constexpr std::uint32_t plainHeaderBytes = 40;
constexpr std::uint32_t alphaHeaderBytes = 108;
constexpr std::uint32_t paletteEntries = 256;
constexpr std::uint32_t sRGB = 0x73524742;
constexpr double inchesPerMetre = 1 / 0.0254;

/// Appends the little-endian number.
void append(SharedBuffer& bytes, std::uint32_t value, int count = 4) {
    for (int i = 0; i < count; ++i)
        bytes.append(1, static_cast<char>(value >> (8 * i)));
}

std::uint32_t dotsPerMetre(double dotsPerInch) {
    return static_cast<std::uint32_t>(std::lround(dotsPerInch * inchesPerMetre));
}

void appendInformation(SharedBuffer& bytes, const Image& image, std::uint32_t pixelBytes) {
    const bool hasAlpha = image.channels == 4;
    append(bytes, hasAlpha ? alphaHeaderBytes : plainHeaderBytes);
    append(bytes, static_cast<std::uint32_t>(image.width));
    append(bytes, static_cast<std::uint32_t>(image.height));
    append(bytes, 1, 2); // planes
    append(bytes, static_cast<std::uint32_t>(8 * image.channels), 2);
    append(bytes, static_cast<std::uint32_t>(hasAlpha ? Compression::masks : Compression::none));
    append(bytes, pixelBytes);
    append(bytes, dotsPerMetre(image.horizontalDPI));
    append(bytes, dotsPerMetre(image.verticalDPI));
    append(bytes, image.channels == 1 ? paletteEntries : 0);
    append(bytes, 0); // all colours are important
    if (!hasAlpha)
        return;
    for (const std::uint32_t mask : {0x00FF0000U, 0x0000FF00U, 0x000000FFU, 0xFF000000U})
        append(bytes, mask);
    append(bytes, sRGB);
    bytes.append(48, '\0'); // end points and gamma, which sRGB implies
}

/// Appends one row with red and blue swapped.
void appendRow(SharedBuffer& bytes, const Image& image, const char* row) {
    const auto start = bytes.size();
    bytes.append({row, image.rowBytes()});
    if (image.channels == 1)
        return;
    const auto step = static_cast<std::size_t>(image.channels);
    for (auto* pixel = bytes.data() + start; pixel < bytes.data() + bytes.size(); pixel += step)
        std::swap(pixel[0], pixel[2]);
}

} // namespace

SharedBytes write(const Image& image) {
    const auto stride = (image.rowBytes() + 3) / 4 * 4;
    const auto pixelBytes = static_cast<std::uint32_t>(stride * static_cast<std::size_t>(image.height));
    const auto paletteBytes = image.channels == 1 ? 4 * paletteEntries : 0;
    const auto start =
        fileHeaderBytes + (image.channels == 4 ? alphaHeaderBytes : plainHeaderBytes) + paletteBytes;
    SharedBuffer bytes;
    bytes.reserve(start + pixelBytes);
    bytes.append("BM");
    append(bytes, start + pixelBytes);
    append(bytes, 0);
    append(bytes, start);
    appendInformation(bytes, image, pixelBytes);
    for (std::uint32_t gray = 0; gray < paletteBytes / 4; ++gray)
        append(bytes, gray * 0x010101);
    const auto* samples = reinterpret_cast<const char*>(image.samples.get());
    for (int y = image.height - 1; y >= 0; --y) {
        appendRow(bytes, image, samples + static_cast<std::size_t>(y) * image.rowBytes());
        bytes.append(stride - image.rowBytes(), '\0');
    }
    return bytes.finish();
}

} // namespace korvane::Bitmap
