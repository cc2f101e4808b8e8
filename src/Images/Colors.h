/// Conversions of colours and samples on reading a picture, and for formats that cannot store them.
#pragma once

#include <vips/vips8>

namespace korvane {

/// `image`, as read from a file, in one of the forms of an `Image`: gray or RGB, with or without alpha, of 8
/// or 16 bits. Gray and RGB keep their profile; other colours are converted by theirs to sRGB.
vips::VImage inSupportedColors(const vips::VImage& image);

/// The name of the colour model of a picture in a file: "RGB", "Gray", "CMYK" or "Unknown".
const char* colorModel(const vips::VImage& image);

/// `image`, which is in one of the forms of an `Image`, converted to sRGB, without a profile.
vips::VImage inSRGB(const vips::VImage& image);

/// `image` with 8 bits a sample.
vips::VImage with8Bits(const vips::VImage& image);

/// `image` on white, without alpha.
vips::VImage onWhite(const vips::VImage& image);

} // namespace korvane
