/// What a file says of the resolution of its picture. The image library hands over numbers whether or not
/// the file gives a unit for them; without one they are no more than the proportions of a pixel.
#pragma once

#include "Utilities/ImageConverter.h"

#include <string>
#include <string_view>

#include <vips/vips8>

namespace korvane {

/// `image`, which has been read from a file of the format, with the resolution that the file states, or else
/// with the default one.
vips::VImage withStatedResolution(const vips::VImage& image, std::string_view bytes, ImageFormat format);

/// Writes the vertical resolution of a PNG file anew, which libvips 8.16 takes from the horizontal one.
void fixVerticalResolutionInPNG(std::string& bytes, double verticalDotsPerMillimetre);

} // namespace korvane
