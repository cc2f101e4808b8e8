/// The resolution that a file states for its picture. The image library returns numbers even if the file
/// gives no unit for them; without a unit they are only the aspect ratio of a pixel.
#pragma once

#include "Utilities/ImageConverter.h"

#include <span>
#include <string_view>

#include <vips/vips8>

namespace korvane {

/// `image`, read from a file of the format, with the resolution that the file states, or the default one.
vips::VImage withStatedResolution(const vips::VImage& image, std::string_view bytes, ImageFormat format);

/// Corrects the vertical resolution of a PNG file, for which libvips 8.16 writes the horizontal one.
void fixVerticalResolutionInPNG(std::span<char> bytes, double verticalDotsPerMillimetre);

} // namespace korvane
