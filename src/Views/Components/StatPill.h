/// A small counter: a coloured number above the name of what it counts.
#pragma once

#include "Models/PaletteColor.h"

#include <string_view>

namespace korvane {

struct StatPill {
    std::string_view label{};
    int value = 0;
    PaletteColor color = PaletteColor::blue;

    bool operator==(const StatPill&) const = default;
};

} // namespace korvane
