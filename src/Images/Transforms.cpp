#include "Images/Colors.h"
#include "Images/Vips.h"

#include <algorithm>
#include <cmath>

using vips::VImage;

namespace korvane::ImageConverter {

namespace {

/// The library rotates clockwise.
VipsAngle angle(Rotation rotation) {
    switch (rotation) {
    case Rotation::none:
        return VIPS_ANGLE_D0;
    case Rotation::degrees90:
        return VIPS_ANGLE_D270;
    case Rotation::degrees180:
        return VIPS_ANGLE_D180;
    case Rotation::degrees270:
        return VIPS_ANGLE_D90;
    }
    return VIPS_ANGLE_D0;
}

int wholePixels(double length) {
    constexpr double maxLength = maxPixels;
    return static_cast<int>(std::clamp(std::round(length), 1.0, maxLength));
}

ImageSize targetSize(const Image& image, ImageSize to, bool maintainAspectRatio) {
    if (!maintainAspectRatio)
        return {std::max(1, to.width), std::max(1, to.height)};
    const double scale =
        std::min(static_cast<double>(to.width) / image.width, static_cast<double>(to.height) / image.height);
    return {wholePixels(image.width * scale), wholePixels(image.height * scale)};
}

/// The minimum factor for which the library averages whole pixels before it filters; 0 for never. The filter
/// alone is better and twelve times as fast, but its coefficients are small integers: the rounding errors of
/// many coefficients add up.
double averagingFrom(const VImage& image, ImageSize size) {
    constexpr double maxFilterFactor = 8, atOnce = 2, never = 0;
    const bool exceedsFilter =
        image.width() > maxFilterFactor * size.width || image.height() > maxFilterFactor * size.height;
    return exceedsFilter ? atOnce : never;
}

/// `image` in another size. Colours are weighted by their alpha, so that invisible pixels do not affect
/// visible ones.
VImage resized(const VImage& image, ImageSize size) {
    const auto format = image.format();
    const double maxAlpha = format == VIPS_FORMAT_USHORT ? 65535 : 255;
    const auto alpha = [&] { return VImage::option()->set("max_alpha", maxAlpha); };
    const auto source = image.has_alpha() ? image.premultiply(alpha()) : image;
    const auto result = source.resize(static_cast<double>(size.width) / image.width(),
                                      VImage::option()
                                          ->set("vscale", static_cast<double>(size.height) / image.height())
                                          ->set("kernel", VIPS_KERNEL_LANCZOS3)
                                          ->set("gap", averagingFrom(image, size)));
    return image.has_alpha() ? result.unpremultiply(alpha()).cast(format) : result;
}

} // namespace

std::expected<Image, ConversionError> rotate(const Image& image, Rotation by) {
    if (by == Rotation::none)
        return image;
    return guarded(ConversionError::conversionFailed, [&]() -> std::expected<Image, ConversionError> {
        auto rotated = computed(vipsImage(image).rot(angle(by)));
        const bool swapsAxes = by != Rotation::degrees180;
        rotated.horizontalDPI = swapsAxes ? image.verticalDPI : image.horizontalDPI;
        rotated.verticalDPI = swapsAxes ? image.horizontalDPI : image.verticalDPI;
        return rotated;
    });
}

std::expected<Image, ConversionError> flip(const Image& image, FlipDirection direction) {
    if (direction == FlipDirection::none)
        return image;
    return guarded(ConversionError::conversionFailed, [&]() -> std::expected<Image, ConversionError> {
        const auto picture = vipsImage(image);
        if (direction == FlipDirection::both)
            return computed(picture.rot180());
        return computed(picture.flip(direction == FlipDirection::horizontal ? VIPS_DIRECTION_HORIZONTAL
                                                                            : VIPS_DIRECTION_VERTICAL));
    });
}

std::expected<Image, ConversionError> resize(const Image& image, ImageSize to, bool maintainAspectRatio) {
    const auto size = targetSize(image, to, maintainAspectRatio);
    if (size == ImageSize{image.width, image.height})
        return image;
    if (!isWithinLimits(size.width, size.height, image.channels * image.bytesPerSample))
        return std::unexpected(ConversionError::resizeFailed);
    return guarded(ConversionError::resizeFailed, [&]() -> std::expected<Image, ConversionError> {
        return computed(resized(vipsImage(image), size));
    });
}

std::expected<Image, ConversionError> preview(const Image& image, int side) {
    return guarded(ConversionError::invalidImage, [&]() -> std::expected<Image, ConversionError> {
        const auto small = vipsImage(image).thumbnail_image(
            side, VImage::option()->set("height", side)->set("size", VIPS_SIZE_DOWN));
        auto shown = with8Bits(inSRGB(small));
        if (shown.bands() < 3)
            shown = shown.colourspace(VIPS_INTERPRETATION_sRGB);
        if (!shown.has_alpha())
            shown = shown.bandjoin_const({255});
        return computed(shown);
    });
}

} // namespace korvane::ImageConverter
