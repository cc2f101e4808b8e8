#include "Images/HEIC.h"
#include "Images/HEICStructure.h"
#include "Images/Vips.h"

#include <libheif/heif.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

namespace korvane::HEIC {

namespace {

using Context = std::unique_ptr<heif_context, decltype(&heif_context_free)>;
using Handle = std::unique_ptr<heif_image_handle, decltype(&heif_image_handle_release)>;
using Picture = std::unique_ptr<heif_image, decltype(&heif_image_release)>;
using Options = std::unique_ptr<heif_decoding_options, decltype(&heif_decoding_options_free)>;

bool succeeded(const heif_error& error) {
    return error.code == heif_error_Ok;
}

/// An open file and its primary picture; without a handle if the file cannot be read. `bytes` must outlive
/// it.
struct File {
    Context context{heif_context_alloc(), heif_context_free};
    Handle handle{nullptr, heif_image_handle_release};
    int width = 0;
    int height = 0;
    bool hasAlpha = false;
    int bytesPerSample = 1;

    explicit File(std::string_view bytes) {
        if (!succeeded(heif_context_read_from_memory_without_copy(context.get(), bytes.data(), bytes.size(),
                                                                  nullptr)))
            return;
        heif_image_handle* primary = nullptr;
        if (!succeeded(heif_context_get_primary_image_handle(context.get(), &primary)))
            return;
        handle.reset(primary);
        width = heif_image_handle_get_width(primary);
        height = heif_image_handle_get_height(primary);
        hasAlpha = heif_image_handle_has_alpha_channel(primary) != 0;
        bytesPerSample = heif_image_handle_get_luma_bits_per_pixel(primary) > 8 ? 2 : 1;
    }

    bool isReadable() const {
        return handle && isWithinLimits(width, height, (hasAlpha ? 4 : 3) * bytesPerSample);
    }
};

std::string colorProfile(const heif_image_handle* handle) {
    std::string profile(heif_image_handle_get_raw_color_profile_size(handle), '\0');
    if (!profile.empty() && !succeeded(heif_image_handle_get_raw_color_profile(handle, profile.data())))
        profile.clear();
    return profile;
}

heif_chroma sampleOrder(const File& file) {
    if (file.bytesPerSample == 1)
        return file.hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB;
    return file.hasAlpha ? heif_chroma_interleaved_RRGGBBAA_LE : heif_chroma_interleaved_RRGGBB_LE;
}

/// The decoded picture, or none on any error or warning.
Picture decoded(const File& file) {
    const Options options(heif_decoding_options_alloc(), heif_decoding_options_free);
    options->strict_decoding = 1;
    heif_image* picture = nullptr;
    const auto error =
        heif_decode_image(file.handle.get(), &picture, heif_colorspace_RGB, sampleOrder(file), options.get());
    Picture result(picture, heif_image_release);
    heif_error warning{};
    if (!succeeded(error) || heif_image_get_decoding_warnings(picture, 0, &warning, 1) > 0)
        result.reset();
    return result;
}

/// Widens samples of `bits` bits to 16; the maximum maps to the maximum.
void widen(std::byte* samples, std::size_t count, int bits) {
    for (std::size_t i = 0; i < count; ++i) {
        std::uint16_t sample = 0;
        std::memcpy(&sample, samples + 2 * i, 2);
        sample = static_cast<std::uint16_t>((sample << (16 - bits)) | (sample >> (2 * bits - 16)));
        std::memcpy(samples + 2 * i, &sample, 2);
    }
}

} // namespace

bool canRead() {
    return heif_have_decoder_for_format(heif_compression_HEVC) != 0;
}

bool isHEIC(std::string_view bytes) {
    constexpr std::size_t typeOffset = 4, brandsOffset = 8, brandBytes = 4, boxHeaderBytes = 12;
    if (bytes.size() < boxHeaderBytes || bytes.substr(typeOffset, 4) != "ftyp")
        return false;
    const auto boxSize = std::min<std::size_t>(bytes.size(), static_cast<unsigned char>(bytes[3]));
    for (auto offset = brandsOffset; offset + brandBytes <= boxSize; offset += brandBytes) {
        const auto brand = bytes.substr(offset, brandBytes);
        if (std::ranges::count(std::to_array<std::string_view>({"heic", "heix", "heim", "heis"}), brand) > 0)
            return true;
    }
    return false;
}

std::optional<ImageInfo> readInfo(std::string_view bytes) {
    const File file(bytes);
    if (!file.isReadable())
        return std::nullopt;
    return ImageInfo{.width = file.width,
                     .height = file.height,
                     .colorSpace = "RGB",
                     .hasAlpha = file.hasAlpha,
                     .pictureCount = heif_context_get_number_of_top_level_images(file.context.get())};
}

std::expected<Image, ConversionError> read(std::string_view bytes) {
    const File file(bytes);
    if (!file.isReadable() || !hasFiniteReferences(bytes))
        return std::unexpected(ConversionError::invalidImage);
    const auto picture = decoded(file);
    if (!picture)
        return std::unexpected(ConversionError::invalidImage);
    Image image{.width = file.width,
                .height = file.height,
                .channels = file.hasAlpha ? 4 : 3,
                .bytesPerSample = file.bytesPerSample,
                .colorProfile = colorProfile(file.handle.get())};
    int stride = 0;
    const auto* rows = heif_image_get_plane_readonly(picture.get(), heif_channel_interleaved, &stride);
    const bool isAsStated = heif_image_get_primary_width(picture.get()) == image.width &&
                            heif_image_get_primary_height(picture.get()) == image.height;
    if (!rows || !isAsStated)
        return std::unexpected(ConversionError::invalidImage);
    SharedBuffer buffer;
    buffer.resize(image.byteCount());
    auto* samples = reinterpret_cast<std::byte*>(buffer.data());
    for (std::size_t y = 0; y < static_cast<std::size_t>(image.height); ++y)
        std::memcpy(samples + y * image.rowBytes(), rows + y * static_cast<std::size_t>(stride),
                    image.rowBytes());
    if (image.bytesPerSample == 2)
        widen(samples, image.byteCount() / 2,
              heif_image_get_bits_per_pixel_range(picture.get(), heif_channel_interleaved));
    image.samples = buffer.finish().samples();
    return image;
}

} // namespace korvane::HEIC
