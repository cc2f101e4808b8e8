/// The border between Korvane's pictures and those of the image library underneath. Pictures of the library
/// are descriptions of how to compute pixels, and nothing is computed before `computed` asks for it.
#pragma once

#include "Utilities/ImageConverter.h"

#include <exception>
#include <expected>
#include <stop_token>
#include <type_traits>

#include <vips/vips8>

namespace korvane {

/// Starts the library at the first call; every operation begins with it. Whether it runs.
bool startVips();

/// `image` as the library sees it. The samples are not copied: `image` must outlive the result.
vips::VImage vipsImage(const Image& image);
vips::VImage vipsImage(Image&&) = delete;

/// Computes the pixels of `image`, which must be gray or RGB of 8 or 16 bits a sample. Throws `VError` where
/// that fails, or where it is asked to stop before it is done.
Image computed(const vips::VImage& image, const std::stop_token& stop = {});

/// The resolution in dots per inch, from the library's dots per millimetre.
double dotsPerInch(double dotsPerMillimetre);

/// The same the other way round.
double dotsPerMillimetre(double dotsPerInch);

/// How much memory a pixel of `image` takes.
std::int64_t bytesPerPixel(const vips::VImage& image);

/// Whether a picture of these measures may be held in memory.
bool isWithinLimits(std::int64_t width, std::int64_t height, std::int64_t bytesPerPixel);

/// Clears what the library keeps for the thread and of the last error.
class VipsScope {
public:
    VipsScope() = default;
    VipsScope(const VipsScope&) = delete;
    VipsScope& operator=(const VipsScope&) = delete;
    ~VipsScope();
};

/// What `work` returns, or `error` where the library fails or memory is short. No exception leaves the
/// engine.
template <typename Work>
auto guarded(ConversionError error, Work work) -> std::invoke_result_t<Work> {
    if (!startVips())
        return std::unexpected(error);
    const VipsScope scope;
    try {
        return work();
    } catch (const std::exception&) { // the library's own are among them
        return std::unexpected(error);
    }
}

} // namespace korvane
