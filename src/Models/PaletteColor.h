/// The thirteen named colours that distinguish tools, kinds and badges. Only names: the front end defines
/// their values in the light and dark themes.
#pragma once

namespace korvane {

enum class PaletteColor {
    blue,
    brown,
    cyan,
    gray,
    green,
    indigo,
    mint,
    orange,
    pink,
    purple,
    red,
    teal,
    yellow,
};

} // namespace korvane
