#include "Images/Colors.h"

#include <string_view>

using vips::VImage;

namespace korvane {

namespace {

/// The colour model of the profile in `image`, as the four letters in its header ("RGB ", "GRAY", "CMYK");
/// "none" if the profile is invalid, empty if there is none.
std::string_view profileModel(const VImage& image) {
    constexpr std::size_t headBytes = 128, modelOffset = 16, signatureOffset = 36;
    if (vips_image_get_typeof(image.get_image(), VIPS_META_ICC_NAME) == 0)
        return {};
    std::size_t size = 0;
    const auto* data = static_cast<const char*>(image.get_blob(VIPS_META_ICC_NAME, &size));
    const std::string_view profile(data, size);
    if (size < headBytes || profile.substr(signatureOffset, 4) != "acsp")
        return "none";
    return profile.substr(modelOffset, 4);
}

VImage withoutProfile(const VImage& image) {
    auto copy = image.copy();
    vips_image_remove(copy.get_image(), VIPS_META_ICC_NAME);
    return copy;
}

bool hasSupportedSamples(const VImage& image) {
    return image.format() == VIPS_FORMAT_UCHAR || image.format() == VIPS_FORMAT_USHORT;
}

/// The default interpretation of samples without a specified one.
VipsInterpretation plainInterpretation(const VImage& image) {
    const bool is16Bits = image.format() == VIPS_FORMAT_USHORT;
    if (image.bands() < 3)
        return is16Bits ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_B_W;
    return is16Bits ? VIPS_INTERPRETATION_RGB16 : VIPS_INTERPRETATION_sRGB;
}

bool isPlain(VipsInterpretation interpretation) {
    return interpretation == VIPS_INTERPRETATION_B_W || interpretation == VIPS_INTERPRETATION_GREY16 ||
           interpretation == VIPS_INTERPRETATION_sRGB || interpretation == VIPS_INTERPRETATION_RGB16 ||
           interpretation == VIPS_INTERPRETATION_RGB || interpretation == VIPS_INTERPRETATION_MULTIBAND;
}

/// Converts signed or 32-bit integer samples of gray or RGB to the upper 16 bits of their range.
VImage withUpperBits(const VImage& image) {
    constexpr double range16 = 65536, range32 = range16 * range16;
    const auto scaled = [&](double minValue, double range) {
        return ((image - minValue) * (range16 / range)).cast(VIPS_FORMAT_USHORT);
    };
    switch (image.format()) {
    case VIPS_FORMAT_CHAR:
        return scaled(-128, 256);
    case VIPS_FORMAT_SHORT:
        return scaled(-range16 / 2, range16);
    case VIPS_FORMAT_INT:
        return scaled(-range32 / 2, range32);
    default:
        return scaled(0, range32);
    }
}

/// Converts floating-point samples of gray or RGB, which are linear light from 0 to 1.
VImage fromLinearLight(const VImage& image) {
    const bool isGray = image.bands() < 3;
    const auto light = image.cast(VIPS_FORMAT_FLOAT);
    const auto first = light.extract_band(0);
    const auto colors = isGray ? VImage::bandjoin({first, first, first})
                               : light.extract_band(0, VImage::option()->set("n", 3));
    const auto shown = colors.copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_scRGB))
                           .colourspace(VIPS_INTERPRETATION_sRGB);
    auto result = isGray ? shown.extract_band(0) : shown;
    if (!image.has_alpha())
        return result;
    return result.bandjoin((light.extract_band(isGray ? 1 : 3) * 255).rint().cast(VIPS_FORMAT_UCHAR));
}

/// Converts to sRGB by the profile in `image`, or by a default one if it has no usable profile.
VImage convertedByProfile(const VImage& image) {
    return image.icc_transform(
        "srgb",
        VImage::option()
            ->set("embedded", true)
            ->set("input_profile", image.interpretation() == VIPS_INTERPRETATION_CMYK ? "cmyk" : "srgb")
            ->set("intent", VIPS_INTENT_RELATIVE)
            ->set("black_point_compensation", true));
}

} // namespace

VImage inSupportedColors(const VImage& image) {
    auto converted = image;
    if (converted.interpretation() == VIPS_INTERPRETATION_CMYK) {
        if (profileModel(converted) != "CMYK")
            converted = withoutProfile(converted);
        converted = withoutProfile(convertedByProfile(converted));
    } else if (!isPlain(converted.interpretation()) &&
               converted.interpretation() != VIPS_INTERPRETATION_scRGB) {
        converted = withoutProfile(converted.colourspace(converted.bands() < 3 ? VIPS_INTERPRETATION_B_W
                                                                               : VIPS_INTERPRETATION_sRGB));
    } else if (!hasSupportedSamples(converted)) {
        const bool isInteger = vips_band_format_isint(converted.format()) != 0;
        converted = withoutProfile(isInteger ? withUpperBits(converted) : fromLinearLight(converted));
    }
    const bool isGray = converted.interpretation() == VIPS_INTERPRETATION_B_W ||
                        converted.interpretation() == VIPS_INTERPRETATION_GREY16 || converted.bands() < 3;
    const int maxBands = isGray ? 2 : 4;
    if (converted.bands() > maxBands)
        converted = converted.extract_band(0, VImage::option()->set("n", maxBands));
    converted = converted.copy(VImage::option()->set("interpretation", plainInterpretation(converted)));
    if (profileModel(converted) != (isGray ? "GRAY" : "RGB "))
        converted = withoutProfile(converted);
    return converted;
}

const char* colorModel(const VImage& image) {
    switch (image.interpretation()) {
    case VIPS_INTERPRETATION_B_W:
    case VIPS_INTERPRETATION_GREY16:
        return "Gray";
    case VIPS_INTERPRETATION_sRGB:
    case VIPS_INTERPRETATION_RGB16:
    case VIPS_INTERPRETATION_RGB:
    case VIPS_INTERPRETATION_scRGB:
        return "RGB";
    case VIPS_INTERPRETATION_CMYK:
        return "CMYK";
    default:
        return "Unknown";
    }
}

VImage inSRGB(const VImage& image) {
    const auto model = profileModel(image);
    return model.empty() || model == "none" ? withoutProfile(image)
                                            : withoutProfile(convertedByProfile(image));
}

VImage with8Bits(const VImage& image) {
    if (image.format() == VIPS_FORMAT_UCHAR)
        return image;
    const auto narrow = image.cast(VIPS_FORMAT_UCHAR, VImage::option()->set("shift", true));
    return narrow.copy(VImage::option()->set("interpretation", plainInterpretation(narrow)));
}

VImage onWhite(const VImage& image) {
    if (!image.has_alpha())
        return image;
    const double white = image.format() == VIPS_FORMAT_USHORT ? 65535 : 255;
    return image.flatten(VImage::option()->set("background", white)->set("max_alpha", white));
}

} // namespace korvane
