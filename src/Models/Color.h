/// An opaque colour in the sRGB space (IEC 61966-2-1). It has no alpha channel.
#pragma once

#include <optional>

namespace korvane {

/// The channels range from 0 to 1 and are gamma-encoded as in sRGB, not linear. Construction checks nothing;
/// `sRGB` does.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;

    /// The value of a full channel on the scale from 0 to 255.
    static constexpr double maxChannel = 255;

    /// The colour of three channels from 0 to 255.
    static constexpr Color fromChannels(double red, double green, double blue) {
        return {.red = red / maxChannel, .green = green / maxChannel, .blue = blue / maxChannel};
    }

    /// The colour itself, or none if a channel is below 0, above 1 or not a number.
    constexpr std::optional<Color> sRGB() const {
        for (const auto channel : {red, green, blue}) {
            if (!(channel >= 0 && channel <= 1))
                return std::nullopt;
        }
        return *this;
    }

    bool operator==(const Color&) const = default;
};

} // namespace korvane
