#include "Utilities/Text/ByteCount.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace korvane {

namespace {

struct Amount {
    double value;
    std::string_view unit;
};

/// The bytes, at least 1000, in the largest unit in which they are not below 1 when rounded.
Amount amountOf(std::int64_t bytes) {
    constexpr auto units = std::to_array<std::string_view>({"KB", "MB", "GB"});
    double value = static_cast<double>(bytes) / 1000;
    std::size_t unit = 0;
    for (; value >= 999.5 && unit + 1 < units.size(); ++unit)
        value /= 1000;
    return {.value = value, .unit = units[unit]};
}

} // namespace

std::string byteCountText(std::int64_t bytes) {
    if (bytes < 1000)
        return fmt::format("{} bytes", bytes);
    const auto [value, unit] = amountOf(bytes);
    return unit == "KB" || value >= 99.95 ? fmt::format("{:.0f} {}", value, unit)
                                          : fmt::format("{:.1f} {}", value, unit);
}

std::string shortByteCountText(std::int64_t bytes) {
    if (bytes < 1000)
        return fmt::format("{} bytes", bytes);
    const auto [value, unit] = amountOf(bytes);
    return fmt::format("{:.0f} {}", value, unit);
}

} // namespace korvane
