/// The entry point of the library that `ImageModule` loads.

#include "Images/Vips.h"
#include "Utilities/ImageConverter.h"

extern "C" [[gnu::visibility("default")]] const korvane::ImageEngine* korvaneImageEngine();

/// Null if the engine cannot be started.
const korvane::ImageEngine* korvaneImageEngine() {
    using namespace korvane::ImageConverter;
    static constexpr korvane::ImageEngine engine{
        .canDecode = canDecode,
        .canEncode = canEncode,
        .formatOf = formatOf,
        .decode = decode,
        .getImageInfo = getImageInfo,
        .convert = convert,
        .rotate = rotate,
        .flip = flip,
        .resize = resize,
        .preview = preview,
    };
    return korvane::startVips() ? &engine : nullptr;
}
