/// A small number with its name and a coloured dot.
#pragma once

#include "Models/PaletteColor.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct StatBadge {
    std::string_view label;
    int value = 0;
    std::optional<PaletteColor> color{}; ///< none: the colour of secondary text

    /// The visible text, such as "Added: 5".
    std::string text() const { return std::string(label) + ": " + std::to_string(value); }

    bool operator==(const StatBadge&) const = default;
};

} // namespace korvane
