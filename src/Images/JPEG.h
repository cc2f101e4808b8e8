/// A second look at JPEG files about which the image library has warned. It does not hand out pixels.
#pragma once

#include <stop_token>
#include <string_view>

namespace korvane::JPEG {

/// Whether all data of the picture are there, so that what is unusual about the file is no more than that:
/// stray bytes between its segments, parameters that decoders ignore, an end without its marker. Decodes the
/// file, at an eighth of its size. Asked to stop, it answers no.
bool isComplete(std::string_view bytes, const std::stop_token& stop);

} // namespace korvane::JPEG
