/// HEIC files, read and written by libheif itself: through the image library the encoder's speed cannot be
/// chosen, and its plug-in for them comes only with all its other plug-ins.
#pragma once

#include "Utilities/ImageConverter.h"

#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace korvane::HEIC {

/// Whether libheif has a codec for these files: in some releases its codecs are packages of their own.
bool canRead();
bool canWrite();

/// Whether a file says of itself that it holds pictures of this kind, and not others in the same container.
bool isHEIC(std::string_view bytes);

/// Facts about the primary picture, without decoding it; none where the file cannot be read.
std::optional<ImageInfo> readInfo(std::string_view bytes);

/// The primary picture, RGB with or without alpha, upright: files state how to turn it, and readers do.
std::expected<Image, ConversionError> read(std::string_view bytes);

/// A file with the picture, which has 8 bits a sample and 3 or 4 channels; `quality` is from 0 to 1.
std::expected<std::string, ConversionError> write(const Image& image, double quality);

} // namespace korvane::HEIC
