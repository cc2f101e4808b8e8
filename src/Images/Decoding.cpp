#include "Images/Bitmap.h"
#include "Images/Colors.h"
#include "Images/HEIC.h"
#include "Images/JPEG.h"
#include "Images/Resolution.h"
#include "Images/Vips.h"

#include <algorithm>
#include <cmath>
#include <utility>

using vips::VImage;

namespace korvane::ImageConverter {

namespace {

/// The image library's loader for a format.
struct Loader {
    ImageFormat format;
    VImage (*load)(VipsBlob*, vips::VOption*);
};

constexpr auto loaders = std::to_array<Loader>({
    {ImageFormat::png, VImage::pngload_buffer},
    {ImageFormat::jpeg, VImage::jpegload_buffer},
    {ImageFormat::tiff, VImage::tiffload_buffer},
    {ImageFormat::gif, VImage::gifload_buffer},
});

/// The picture in the file; only the header has been read. `bytes` must outlive it. Conditions in `failOn`
/// are errors, now or when the pixels are computed.
VImage open(std::string_view bytes, ImageFormat format, VipsFailOn failOn = VIPS_FAIL_ON_ERROR) {
    const auto& loader = *std::ranges::find(loaders, format, &Loader::format);
    auto* blob = vips_blob_new(nullptr, bytes.data(), bytes.size());
    try {
        auto image = loader.load(
            blob, VImage::option()->set("access", VIPS_ACCESS_SEQUENTIAL)->set("fail_on", failOn));
        vips_area_unref(VIPS_AREA(blob));
        // One thread: with several, the library may miss that one of them reached the end of a truncated
        // file. They would wait for each other anyway, as a file is read sequentially.
        image = withStatedResolution(image, bytes, format);
        image.set(VIPS_META_CONCURRENCY, 1);
        return image;
    } catch (const vips::VError&) {
        vips_area_unref(VIPS_AREA(blob));
        throw;
    }
}

/// `image` upright. Rotation requires all pixels in memory.
Image upright(const VImage& image, const std::stop_token& stop) {
    const auto supported = inSupportedColors(image);
    const int orientation = vips_image_get_orientation(image.get_image());
    if (orientation <= 1)
        return computed(supported, stop);
    const auto unrotated = computed(supported, stop);
    auto picture = vipsImage(unrotated);
    picture.set(VIPS_META_ORIENTATION, orientation);
    return computed(picture.autorot(), stop);
}

/// The picture in a JPEG file. The library only warns of missing data, and also warns of defects that do not
/// affect the picture; `JPEG::isComplete` distinguishes the two.
Image readJPEG(std::string_view bytes, const std::stop_token& stop) {
    try {
        return upright(open(bytes, ImageFormat::jpeg, VIPS_FAIL_ON_WARNING), stop);
    } catch (const vips::VError&) {
        if (!JPEG::isComplete(bytes, stop))
            throw;
    }
    return upright(open(bytes, ImageFormat::jpeg, VIPS_FAIL_ON_NONE), stop);
}

std::optional<ImageInfo> bitmapInfo(std::string_view bytes) {
    const auto header = Bitmap::readHeader(bytes);
    if (!header)
        return std::nullopt;
    return ImageInfo{.width = header->width,
                     .height = header->height,
                     .colorSpace = header->isGray() ? "Gray" : "RGB",
                     .hasAlpha = header->hasAlpha(),
                     .dpi = static_cast<int>(std::lround(header->horizontalDPI))};
}

std::optional<ImageInfo> libraryInfo(std::string_view bytes, ImageFormat format) {
    const auto read =
        guarded(ConversionError::invalidImage, [&]() -> std::expected<ImageInfo, ConversionError> {
            const auto image = open(bytes, format);
            ImageInfo info{.width = image.width(),
                           .height = image.height(),
                           .colorSpace = colorModel(image),
                           .hasAlpha = image.has_alpha(),
                           .dpi = static_cast<int>(std::lround(dotsPerInch(image.xres()))),
                           .pictureCount = vips_image_get_n_pages(image.get_image())};
            if (vips_image_get_orientation_swap(image.get_image()) != 0) {
                std::swap(info.width, info.height);
                info.dpi = static_cast<int>(std::lround(dotsPerInch(image.yres())));
            }
            return info;
        });
    return read ? std::optional(*read) : std::nullopt;
}

std::expected<Image, ConversionError> decodeBitmap(std::string_view bytes) {
    const auto header = Bitmap::readHeader(bytes);
    if (!header || !isWithinLimits(header->width, header->height, header->channels()))
        return std::unexpected(ConversionError::invalidImage);
    auto image = Bitmap::read(*header);
    if (!image)
        return std::unexpected(ConversionError::invalidImage);
    return *std::move(image);
}

} // namespace

std::optional<ImageFormat> formatOf(std::string_view bytes) {
    using namespace std::string_view_literals;

    struct Signature {
        std::string_view bytes;
        ImageFormat format;
    };

    static constexpr auto signatures = std::to_array<Signature>({
        {"\x89PNG\r\n\x1a\n"sv, ImageFormat::png},
        {"\xff\xd8\xff"sv, ImageFormat::jpeg},
        {"II*\0"sv, ImageFormat::tiff},
        {"MM\0*"sv, ImageFormat::tiff},
        {"II+\0"sv, ImageFormat::tiff}, // with offsets of 64 bits
        {"MM\0+"sv, ImageFormat::tiff},
        {"GIF87a"sv, ImageFormat::gif},
        {"GIF89a"sv, ImageFormat::gif},
        {"BM"sv, ImageFormat::bmp},
    });
    for (const auto& signature : signatures) {
        if (bytes.starts_with(signature.bytes))
            return signature.format;
    }
    if (HEIC::isHEIC(bytes))
        return ImageFormat::heic;
    return std::nullopt;
}

std::optional<ImageInfo> getImageInfo(std::string_view bytes) {
    const auto format = formatOf(bytes);
    if (!format)
        return std::nullopt;
    auto info = *format == ImageFormat::bmp    ? bitmapInfo(bytes)
                : *format == ImageFormat::heic ? HEIC::readInfo(bytes)
                                               : libraryInfo(bytes, *format);
    if (info) {
        info->format = description(*format);
        info->fileSize = static_cast<std::int64_t>(bytes.size());
    }
    return info;
}

std::expected<Image, ConversionError> decode(std::string_view bytes, const std::stop_token& stop) {
    const auto format = formatOf(bytes);
    if (!format)
        return std::unexpected(ConversionError::unsupportedFormat);
    return guarded(ConversionError::invalidImage, [&]() -> std::expected<Image, ConversionError> {
        if (stop.stop_requested())
            return std::unexpected(ConversionError::invalidImage);
        if (*format == ImageFormat::bmp)
            return decodeBitmap(bytes);
        if (*format == ImageFormat::heic)
            return HEIC::read(bytes);
        const auto image = open(bytes, *format);
        if (!isWithinLimits(image.width(), image.height(), bytesPerPixel(image)))
            return std::unexpected(ConversionError::invalidImage);
        return *format == ImageFormat::jpeg ? readJPEG(bytes, stop) : upright(image, stop);
    });
}

} // namespace korvane::ImageConverter
