/// The thirteen named colours that tools, kinds and badges are told apart by. Only names: what a name looks
/// like in light and in dark is the front end's matter.
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
