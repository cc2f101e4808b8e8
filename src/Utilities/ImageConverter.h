/// Pictures: six file formats, facts about files, and three transforms. The image engine implements the
/// functions of the namespace `ImageConverter`. It runs in a process of its own, and the program calls it
/// through `ImageProcess`.
#pragma once

#include "Models/Enumeration.h"
#include "Utilities/Images/SharedBytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace korvane {

enum class ImageFormat { png, jpeg, tiff, gif, bmp, heic };

struct ImageFormatFacts {
    ImageFormat value;
    std::string_view rawValue;
    std::string_view fileExtension;
    std::string_view mediaType;
    std::string_view description; ///< of the file type
    bool supportsQuality;
    /// The Debian packages of its codecs, if these are plug-ins that may be missing.
    std::string_view decoderPackage;
    std::string_view encoderPackage;
};

template <>
inline constexpr auto facts<ImageFormat> = std::to_array<ImageFormatFacts>({
    {ImageFormat::png, "PNG", "png", "image/png", "PNG image", false, "", ""},
    {ImageFormat::jpeg, "JPEG", "jpg", "image/jpeg", "JPEG image", true, "", ""},
    {ImageFormat::tiff, "TIFF", "tiff", "image/tiff", "TIFF image", false, "", ""},
    {ImageFormat::gif, "GIF", "gif", "image/gif", "GIF image", false, "", ""},
    {ImageFormat::bmp, "BMP", "bmp", "image/bmp", "BMP image", false, "", ""},
    {ImageFormat::heic, "HEIC", "heic", "image/heic", "HEIC image", true, "libheif-plugin-libde265",
     "libheif-plugin-x265"},
});

constexpr std::string_view id(ImageFormat format) {
    return rawValue(format);
}

/// The usual file extension, without the dot.
constexpr std::string_view fileExtension(ImageFormat format) {
    return factsOf(format).fileExtension;
}

/// Whether the format is lossy with an adjustable quality.
constexpr bool supportsQuality(ImageFormat format) {
    return factsOf(format).supportsQuality;
}

/// Counter-clockwise, in quarter turns.
enum class Rotation { none, degrees90, degrees180, degrees270 };

struct RotationFacts {
    Rotation value;
    int rawValue; ///< in degrees
    std::string_view label;
};

template <>
inline constexpr auto facts<Rotation> = std::to_array<RotationFacts>({
    {Rotation::none, 0, "None"},
    {Rotation::degrees90, 90, "90°"},
    {Rotation::degrees180, 180, "180°"},
    {Rotation::degrees270, 270, "270°"},
});

constexpr int rawValue(Rotation rotation) {
    return factsOf(rotation).rawValue;
}

constexpr int id(Rotation rotation) {
    return rawValue(rotation);
}

/// The direction of mirroring: `horizontal` swaps left and right.
enum class FlipDirection { none, horizontal, vertical, both };

struct FlipDirectionFacts {
    FlipDirection value;
    std::string_view rawValue;
};

template <>
inline constexpr auto facts<FlipDirection> = std::to_array<FlipDirectionFacts>({
    {FlipDirection::none, "None"},
    {FlipDirection::horizontal, "Horizontal"},
    {FlipDirection::vertical, "Vertical"},
    {FlipDirection::both, "Both"},
});

constexpr std::string_view id(FlipDirection direction) {
    return rawValue(direction);
}

/// The first five are about a picture; the others are about the image process and say nothing about the
/// picture, but that `outOfMemory` and those after it can be caused by it.
enum class ConversionError {
    invalidImage,
    conversionFailed,
    unsupportedFormat,
    saveFailed,
    resizeFailed,
    cancelled,
    processMissing,
    processNotIsolated,
    outOfMemory,
    processEnded,
    timedOut,
    invalidAnswer,
};

struct ConversionErrorFacts {
    ConversionError value;
    std::string_view errorDescription;
};

template <>
inline constexpr auto facts<ConversionError> = std::to_array<ConversionErrorFacts>({
    {ConversionError::invalidImage, "Invalid or corrupted image"},
    {ConversionError::conversionFailed, "Failed to convert image"},
    {ConversionError::unsupportedFormat, "Unsupported image format"},
    {ConversionError::saveFailed, "Failed to save image"},
    {ConversionError::resizeFailed, "Failed to resize image"},
    {ConversionError::cancelled, "Cancelled"},
    {ConversionError::processMissing, "The image process cannot be started"},
    {ConversionError::processNotIsolated,
     "The image process cannot be isolated on this computer, so it opens no images"},
    {ConversionError::outOfMemory, "The image needs too much memory"},
    {ConversionError::processEnded, "The image process stopped unexpectedly"},
    {ConversionError::timedOut, "It took too long and was stopped"},
    {ConversionError::invalidAnswer, "The image process gave an invalid answer"},
});

/// The message for users.
constexpr std::string_view errorDescription(ConversionError error) {
    return factsOf(error).errorDescription;
}

/// Whether the user learns of the error even where one about the picture is skipped.
constexpr bool isAboutProcess(ConversionError error) {
    return error >= ConversionError::cancelled;
}

/// The resolution of a picture that specifies none, in dots per inch.
inline constexpr int defaultDPI = 72;

/// Whether a resolution is plausible. Others in a file are ignored; some formats cannot store them.
constexpr bool isValidDPI(double dpi) {
    return dpi >= 1 && dpi <= 100'000;
}

struct ImageInfo {
    int width = 0;  ///< in pixels, of the upright picture
    int height = 0; ///< the same
    std::string format{};
    std::int64_t fileSize = 0;          ///< in bytes
    std::string colorSpace = "Unknown"; ///< "RGB", "Gray", "CMYK" or "Unknown"
    bool hasAlpha = false;
    int dpi = defaultDPI; ///< horizontally
    int pictureCount = 1; ///< pictures in the file: frames of an animation, pages

    bool operator==(const ImageInfo&) const = default;
};

/// A decoded picture, upright. Immutable, so copies share their samples and cost nothing; two are equal only
/// if they share them.
struct Image {
    int width = 0;          ///< in pixels, at least 1
    int height = 0;         ///< the same
    int channels = 0;       ///< 1: gray, 2: gray and alpha, 3: red, green, blue, 4: these and alpha
    int bytesPerSample = 1; ///< 1 or 2, in the machine's byte order
    /// Rows from top to bottom, without padding. Alpha is not premultiplied.
    std::shared_ptr<const std::byte> samples{};
    std::string colorProfile{}; ///< the ICC profile of the colours; empty: sRGB
    double horizontalDPI = defaultDPI;
    double verticalDPI = defaultDPI;

    bool hasAlpha() const { return channels % 2 == 0; }

    std::size_t rowBytes() const {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(channels * bytesPerSample);
    }

    std::size_t byteCount() const { return rowBytes() * static_cast<std::size_t>(height); }

    bool operator==(const Image&) const = default;
};

struct ImageSize {
    int width = 0;
    int height = 0;

    bool operator==(const ImageSize&) const = default;
};

/// The operations of the engine. They are thread-safe. Each can also fail with `outOfMemory`. Samples and
/// bytes of results are shared memory.
namespace ImageConverter {

/// The limits of pictures that are decoded or created: without them, a file of a few kilobytes could require
/// more memory than the machine has.
inline constexpr std::int64_t maxPixels = 300'000'000;
inline constexpr std::int64_t maxBytes = std::int64_t(1) << 30;

/// Whether a codec to read or write files of the format is installed. The underlying libraries load some of
/// their codecs as plug-ins, which may be missing.
bool canDecode(ImageFormat format);
bool canEncode(ImageFormat format);

/// The format of a file by its content, whatever its name; none if it is not one of the six.
std::optional<ImageFormat> formatOf(std::string_view bytes);

/// The first picture in a file's bytes, turned upright by the file's orientation. Colours that are neither
/// gray nor RGB become sRGB; 16 bits a sample stay 16 bits. Fails with `unsupportedFormat` if the bytes are
/// in none of the six formats, and with `invalidImage` if they are truncated, corrupt, or contain a picture
/// that exceeds the limits, which are checked before memory is allocated. Fails promptly after a stop
/// request.
std::expected<Image, ConversionError> decode(std::string_view bytes, const std::stop_token& stop);

/// Facts about the first picture in a file's bytes, without decoding it; none if they cannot be read.
std::optional<ImageInfo> getImageInfo(std::string_view bytes);

/// The bytes of a file in the format. `quality` is from 0 to 1, and ignored unless the format
/// `supportsQuality`. Properties that the format cannot store are converted: colours to sRGB, samples to
/// 8 bits, transparency to white. Fails with `invalidImage` if the image has no pixels, and with
/// `conversionFailed` on other errors.
std::expected<SharedBytes, ConversionError> convert(const Image& image, ImageFormat to, double quality);

/// The picture turned counter-clockwise.
std::expected<Image, ConversionError> rotate(const Image& image, Rotation by);

/// The mirrored picture.
std::expected<Image, ConversionError> flip(const Image& image, FlipDirection direction);

/// The picture resized to `to`, in pixels; with `maintainAspectRatio`, to the maximum size with the same
/// proportions that fits into `to`. Sides are rounded to whole pixels, at least 1. Fails with `resizeFailed`,
/// also if the result would exceed the limits.
std::expected<Image, ConversionError> resize(const Image& image, ImageSize to, bool maintainAspectRatio);

/// The picture for the screen: neither side longer than `side` pixels, in sRGB, with four channels of 8 bits.
std::expected<Image, ConversionError> preview(const Image& image, int side);

} // namespace ImageConverter

} // namespace korvane
