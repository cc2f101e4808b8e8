/// Converts between Korvane's pictures and those of the underlying image library. The library's pictures are
/// descriptions of how to compute pixels; `computed` runs the computation.
#pragma once

#include "Utilities/ImageConverter.h"

#include <exception>
#include <expected>
#include <new>
#include <stop_token>
#include <type_traits>

#include <vips/vips8>

namespace korvane {

/// Starts the library at the first call; every operation calls it first. Returns whether the library runs.
bool startVips();

/// `image` as a picture of the library. The samples are not copied: `image` must outlive the result.
vips::VImage vipsImage(const Image& image);
vips::VImage vipsImage(Image&&) = delete;

/// Computes the pixels of `image`, which must be gray or RGB of 8 or 16 bits a sample. Throws `VError` on
/// failure, or after a stop request.
Image computed(const vips::VImage& image, const std::stop_token& stop = {});

/// The resolution in dots per inch, from the library's dots per millimetre.
double dotsPerInch(double dotsPerMillimetre);

/// The inverse of `dotsPerInch`.
double dotsPerMillimetre(double dotsPerInch);

/// The memory size of a pixel of `image`.
std::int64_t bytesPerPixel(const vips::VImage& image);

/// Whether a picture of this size is within `maxPixels` and `maxBytes`.
bool isWithinLimits(std::int64_t width, std::int64_t height, std::int64_t bytesPerPixel);

/// Clears the library's per-thread data and its last error at the end of a scope.
class VipsScope {
public:
    VipsScope() = default;
    VipsScope(const VipsScope&) = delete;
    VipsScope& operator=(const VipsScope&) = delete;
    ~VipsScope();
};

/// The result of `work`, or `error` if the library fails, or `outOfMemory`. No exception leaves the engine.
template <typename Work>
auto guarded(ConversionError error, Work work) -> std::invoke_result_t<Work> {
    if (!startVips())
        return std::unexpected(error);
    const VipsScope scope;
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return std::unexpected(ConversionError::outOfMemory);
    } catch (const std::exception&) { // the library's own are among them
        return std::unexpected(error);
    }
}

} // namespace korvane
