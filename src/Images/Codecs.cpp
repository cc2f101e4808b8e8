/// Which formats the installed libraries can read and write. Releases are distinguished by capability, not by
/// version.

#include "Images/HEIC.h"
#include "Images/Vips.h"
#include "Utilities/ImageConverter.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace korvane::ImageConverter {

namespace {

/// The names of the image library's operations for a format.
struct Operations {
    ImageFormat format;
    const char* load;
    const char* save;
};

constexpr auto operations = std::to_array<Operations>({
    {ImageFormat::png, "pngload_buffer", "pngsave_target"},
    {ImageFormat::jpeg, "jpegload_buffer", "jpegsave_target"},
    {ImageFormat::tiff, "tiffload_buffer", "tiffsave_target"},
    {ImageFormat::gif, "gifload_buffer", "gifsave_target"},
});

bool hasOperation(ImageFormat format, const char* Operations::* name) {
    const auto* found = std::ranges::find(operations, format, &Operations::format);
    return startVips() && vips_type_find("VipsOperation", (*found).*name) != 0;
}

} // namespace

bool canDecode(ImageFormat format) {
    switch (format) {
    case ImageFormat::bmp:
        return true;
    case ImageFormat::heic:
        return HEIC::canRead();
    default:
        return hasOperation(format, &Operations::load);
    }
}

bool canEncode(ImageFormat format) {
    switch (format) {
    case ImageFormat::bmp:
        return true;
    case ImageFormat::heic:
        return HEIC::canWrite();
    default:
        return hasOperation(format, &Operations::save);
    }
}

} // namespace korvane::ImageConverter
