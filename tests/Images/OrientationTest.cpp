/// Decoding applies the orientation that a file states.

#include "Utilities/ImageConverter.h"

#include "Images/Vips.h"
#include "support/ImageFiles.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <libheif/heif.h>

#include <cstring>
#include <string>
#include <string_view>

namespace korvane {
namespace {

using namespace ImageConverter;
using namespace support;

/// The place, in a stored picture of `size`, of the pixel displayed at (x, y), for each orientation that a
/// file can state (TIFF 6.0, page 36).
ImageSize storedPlace(int orientation, ImageSize size, int x, int y) {
    const int right = size.width - 1;
    const int bottom = size.height - 1;
    switch (orientation) {
    case 2:
        return {right - x, y};
    case 3:
        return {right - x, bottom - y};
    case 4:
        return {x, bottom - y};
    case 5:
        return {y, x};
    case 6:
        return {y, bottom - x};
    case 7:
        return {right - y, bottom - x};
    case 8:
        return {right - y, x};
    default:
        return {x, y};
    }
}

TEST(Orientation, IsAppliedOnce) {
    startVips();
    const auto stored = distinctPicture({6, 4});
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const ImageSize shown = orientation < 5 ? ImageSize{6, 4} : ImageSize{4, 6};
        const auto expected = picture(shown, 3, 1, [&](int x, int y, int channel) {
            const auto place = storedPlace(orientation, {6, 4}, x, y);
            return sampleAt(stored, place.width, place.height, channel);
        });
        auto oriented = vipsImage(stored).copy();
        oriented.set(VIPS_META_ORIENTATION, orientation);
        for (const auto* suffix : {".tif", ".jpg[Q=100]"}) {
            const auto file = libraryFile(oriented, suffix);
            const auto info = getImageInfo(file).value();
            EXPECT_EQ(info.width, shown.width) << suffix << orientation;
            EXPECT_EQ(info.height, shown.height) << suffix << orientation;
            const auto image = decoded(file);
            EXPECT_EQ(image.width, shown.width) << suffix << orientation;
            const bool isExact = std::string_view(suffix) == ".tif";
            EXPECT_TRUE(!isExact || haveSamePixels(image, expected)) << orientation;
            EXPECT_TRUE(haveSamePixels(throughFile(image, ImageFormat::tiff), image))
                << "not applied a second time";
        }
    }
}

/// A HEIC file that states an orientation.
std::string orientedHEIC(const Image& image, heif_orientation orientation) {
    auto* context = heif_context_alloc();
    heif_encoder* encoder = nullptr;
    heif_context_get_encoder_for_format(context, heif_compression_HEVC, &encoder);
    heif_image* picture = nullptr;
    heif_image_create(image.width, image.height, heif_colorspace_RGB, heif_chroma_interleaved_RGB, &picture);
    heif_image_add_plane(picture, heif_channel_interleaved, image.width, image.height, 8);
    int stride = 0;
    auto* rows = heif_image_get_plane(picture, heif_channel_interleaved, &stride);
    for (int y = 0; y < image.height; ++y)
        std::memcpy(rows + y * stride, image.samples.get() + static_cast<std::size_t>(y) * image.rowBytes(),
                    image.rowBytes());
    auto* options = heif_encoding_options_alloc();
    options->image_orientation = orientation;
    heif_context_encode_image(context, picture, encoder, options, nullptr);
    std::string file;
    heif_writer writer{1, [](heif_context*, const void* data, std::size_t size, void* target) {
                           static_cast<std::string*>(target)->append(static_cast<const char*>(data), size);
                           return heif_error{heif_error_Ok, heif_suberror_Unspecified, ""};
                       }};
    heif_context_write(context, &writer, &file);
    heif_encoding_options_free(options);
    heif_image_release(picture);
    heif_encoder_release(encoder);
    heif_context_free(context);
    return file;
}

TEST(Orientation, OfHEICIsApplied) {
    const auto source =
        picture({64, 32}, 3, 1, [](int x, int, int) { return x < 32 ? 20 : 230; }); // dark, light
    const auto file = orientedHEIC(source, heif_orientation_rotate_90_cw);
    const auto info = getImageInfo(file).value();
    EXPECT_EQ(info.width, 32);
    EXPECT_EQ(info.height, 64);
    const auto image = decoded(file);
    EXPECT_EQ(image.width, 32);
    EXPECT_EQ(image.height, 64);
    EXPECT_NEAR(sampleAt(image, 16, 8, 0), 20, 10) << "the left side is now at the top";
    EXPECT_NEAR(sampleAt(image, 16, 56, 0), 230, 10);
}

} // namespace
} // namespace korvane
