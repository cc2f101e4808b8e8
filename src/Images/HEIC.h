/// Reads and writes HEIC files with libheif directly: the image library does not expose the encoder's speed,
/// and its plug-in for them loads only together with all its other plug-ins.
#pragma once

#include "Utilities/ImageConverter.h"

#include <expected>
#include <optional>
#include <string_view>

namespace korvane::HEIC {

/// Whether libheif has a codec for these files: in some releases its codecs are separate packages.
bool canRead();
bool canWrite();

/// Whether the file type brands declare HEIC, not another format in the same container.
bool isHEIC(std::string_view bytes);

/// Facts about the primary picture, without decoding it; none if the file cannot be read.
std::optional<ImageInfo> readInfo(std::string_view bytes);

/// The primary picture, RGB with or without alpha, with the file's rotation applied.
std::expected<Image, ConversionError> read(std::string_view bytes);

/// A file with the picture, which has 8 bits a sample and 3 or 4 channels; `quality` is from 0 to 1.
std::expected<SharedBytes, ConversionError> write(const Image& image, double quality);

} // namespace korvane::HEIC
