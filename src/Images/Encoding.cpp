#include "Images/Bitmap.h"
#include "Images/ByteTarget.h"
#include "Images/Colors.h"
#include "Images/HEIC.h"
#include "Images/Resolution.h"
#include "Images/Vips.h"

#include <algorithm>
#include <cmath>

using vips::VImage;

namespace korvane::ImageConverter {

namespace {

/// The estimated size of a file without its pixels.
constexpr std::size_t headroom = 65536;

bool keepsDepth(ImageFormat format) {
    return format == ImageFormat::png || format == ImageFormat::tiff;
}

bool keepsAlpha(ImageFormat format) {
    return format != ImageFormat::jpeg;
}

bool keepsProfile(ImageFormat format) {
    return format != ImageFormat::gif && format != ImageFormat::bmp;
}

/// `image` without properties that the format cannot store.
VImage fittedToFormat(const VImage& image, ImageFormat format) {
    auto fit = image;
    if (!keepsProfile(format))
        fit = inSRGB(fit);
    if (!keepsAlpha(format))
        fit = onWhite(fit);
    if (!keepsDepth(format))
        fit = with8Bits(fit);
    return fit;
}

/// `image` with three or four channels, as some encoders require.
VImage inRGB(const VImage& image) {
    if (image.bands() >= 3)
        return image;
    const auto gray = inSRGB(image);
    return gray.bands() >= 3 ? gray : gray.colourspace(VIPS_INTERPRETATION_sRGB);
}

/// The file that the image library writes for `image`.
SharedBytes encodedByLibrary(const VImage& image, ImageFormat format, double quality) {
    const auto pixelBytes = std::int64_t(image.width()) * image.height() * bytesPerPixel(image);
    ByteTarget bytes(headroom + static_cast<std::size_t>(pixelBytes));
    const auto target = bytes.target();
    switch (format) {
    case ImageFormat::png:
        image.pngsave_target(target);
        break;
    case ImageFormat::jpeg:
        image.jpegsave_target(
            target, VImage::option()->set("Q", std::max(1, static_cast<int>(std::lround(quality * 100)))));
        break;
    case ImageFormat::tiff:
        image.tiffsave_target(target, VImage::option()->set("resunit", VIPS_FOREIGN_TIFF_RESUNIT_INCH));
        break;
    case ImageFormat::gif:
        image.gifsave_target(target);
        break;
    case ImageFormat::bmp:
    case ImageFormat::heic:
        break; // have their own encoders
    }
    auto& file = bytes.bytes();
    if (format == ImageFormat::png)
        fixVerticalResolutionInPNG({file.data(), file.size()}, image.yres());
    return file.finish();
}

/// `image` in the form that the encoders outside the image library require: 8 bits, no gray with alpha, and
/// for `onlyRGB` no gray at all. An image already in this form is not copied, as it may be large.
Image plainImage(const Image& image, ImageFormat format, bool onlyRGB) {
    const bool hasChannels = onlyRGB ? image.channels >= 3 : image.channels != 2;
    if (hasChannels && image.bytesPerSample == 1 && (image.colorProfile.empty() || keepsProfile(format)))
        return image;
    const auto picture = fittedToFormat(vipsImage(image), format);
    return computed(hasChannels ? picture : inRGB(picture));
}

/// `image` must have pixels; `quality` is from 0 to 1.
std::expected<SharedBytes, ConversionError> createImageData(const Image& image, ImageFormat format,
                                                            double quality) {
    switch (format) {
    case ImageFormat::bmp:
        return Bitmap::write(plainImage(image, format, false));
    case ImageFormat::heic:
        return HEIC::write(plainImage(image, format, true), quality);
    default:
        return encodedByLibrary(fittedToFormat(vipsImage(image), format), format, quality);
    }
}

} // namespace

std::expected<SharedBytes, ConversionError> convert(const Image& image, ImageFormat to, double quality) {
    if (!image.samples)
        return std::unexpected(ConversionError::invalidImage);
    const auto valid = std::isnan(quality) ? 1 : std::clamp(quality, 0.0, 1.0);
    return guarded(ConversionError::conversionFailed, [&] { return createImageData(image, to, valid); });
}

} // namespace korvane::ImageConverter
