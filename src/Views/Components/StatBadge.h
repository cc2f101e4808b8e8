/// A small figure with its name, told apart by a dot of colour.
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

    /// What it says, such as "Added: 5".
    std::string text() const { return std::string(label) + ": " + std::to_string(value); }

    bool operator==(const StatBadge&) const = default;
};

} // namespace korvane
