/// Checks JPEG files that cause warnings in the image library. Does not return pixels.
#pragma once

#include <stop_token>
#include <string_view>

namespace korvane::JPEG {

/// Whether the picture's data are complete, so that the file has only harmless defects: stray bytes between
/// segments, parameters that decoders ignore, a missing end marker. Decodes the file at an eighth of its
/// size. Returns false after a stop request.
bool isComplete(std::string_view bytes, const std::stop_token& stop);

} // namespace korvane::JPEG
