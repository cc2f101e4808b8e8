/// Sizes for users.
#pragma once

#include <cstdint>
#include <string>

namespace korvane {

/// The number of bytes in decimal units, such as "999 bytes", "482 KB" and "1.1 GB".
std::string byteCountText(std::int64_t bytes);

/// The same without decimals, such as "1 GB".
std::string shortByteCountText(std::int64_t bytes);

} // namespace korvane
