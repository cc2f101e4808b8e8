#include "Images/HEIC.h"

#include <libheif/heif.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <new>

namespace korvane::HEIC {

namespace {

using Context = std::unique_ptr<heif_context, decltype(&heif_context_free)>;
using Encoder = std::unique_ptr<heif_encoder, decltype(&heif_encoder_release)>;
using Picture = std::unique_ptr<heif_image, decltype(&heif_image_release)>;

/// The encoder's fastest preset. The default takes eight times as long for hardly smaller files.
constexpr auto preset = "ultrafast";

bool succeeded(const heif_error& error) {
    return error.code == heif_error_Ok;
}

Picture pictureOf(const Image& image) {
    heif_image* created = nullptr;
    const auto chroma = image.hasAlpha() ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB;
    if (!succeeded(heif_image_create(image.width, image.height, heif_colorspace_RGB, chroma, &created)))
        return {nullptr, heif_image_release};
    Picture picture(created, heif_image_release);
    if (!succeeded(heif_image_add_plane(created, heif_channel_interleaved, image.width, image.height, 8)))
        return {nullptr, heif_image_release};
    int stride = 0;
    auto* rows = heif_image_get_plane(created, heif_channel_interleaved, &stride);
    for (std::size_t y = 0; y < static_cast<std::size_t>(image.height); ++y)
        std::memcpy(rows + y * static_cast<std::size_t>(stride), image.samples.get() + y * image.rowBytes(),
                    image.rowBytes());
    if (!image.colorProfile.empty() &&
        !succeeded(heif_image_set_raw_color_profile(created, "prof", image.colorProfile.data(),
                                                    image.colorProfile.size())))
        return {nullptr, heif_image_release};
    return picture;
}

Encoder encoder(heif_context* context, double quality) {
    heif_encoder* created = nullptr;
    if (!succeeded(heif_context_get_encoder_for_format(context, heif_compression_HEVC, &created)))
        return {nullptr, heif_encoder_release};
    Encoder encoder(created, heif_encoder_release);
    const auto percent = static_cast<int>(std::lround(quality * 100));
    if (!succeeded(heif_encoder_set_lossy_quality(created, percent)) ||
        !succeeded(heif_encoder_set_parameter_string(created, "preset", preset)))
        encoder.reset();
    return encoder;
}

heif_error append(heif_context*, const void* data, std::size_t size, void* bytes) {
    try {
        static_cast<SharedBuffer*>(bytes)->append({static_cast<const char*>(data), size});
    } catch (const std::bad_alloc&) { // exceptions must not pass through the library
        return {
            .code = heif_error_Memory_allocation_error, .subcode = heif_suberror_Unspecified, .message = ""};
    }
    return {.code = heif_error_Ok, .subcode = heif_suberror_Unspecified, .message = ""};
}

} // namespace

bool canWrite() {
    return heif_have_encoder_for_format(heif_compression_HEVC) != 0;
}

std::expected<SharedBytes, ConversionError> write(const Image& image, double quality) {
    const std::unexpected failed(ConversionError::conversionFailed);
    const Context context(heif_context_alloc(), heif_context_free);
    const auto encoding = encoder(context.get(), quality);
    auto picture = pictureOf(image);
    if (!encoding || !picture)
        return failed;
    if (!succeeded(heif_context_encode_image(context.get(), picture.get(), encoding.get(), nullptr, nullptr)))
        return failed;
    picture.reset();
    SharedBuffer bytes;
    heif_writer writer{.writer_api_version = 1, .write = append};
    if (!succeeded(heif_context_write(context.get(), &writer, &bytes)))
        return failed;
    return bytes.finish();
}

} // namespace korvane::HEIC
