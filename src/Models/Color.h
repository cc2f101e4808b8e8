/// An opaque colour in the sRGB space (IEC 61966-2-1). How transparent something is painted is not its
/// matter.
#pragma once

#include <optional>

namespace korvane {

/// The channels run from 0 to 1 and are encoded as sRGB is, not linear. Whoever makes a colour may put in
/// anything else, too; `sRGB` tells.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;

    /// What stands for 1 where channels are counted from 0 to 255.
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
