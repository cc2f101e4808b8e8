/// Controls for one colour: a well that shows it and opens the toolkit's dialog to choose another, and a
/// swatch that shows how it covers what lies below.
#pragma once

#include "Models/Color.h"

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct ColorWellParts {
    std::string label;
    std::function<Color()> color;
    std::function<void(Color)> setColor;
};

/// The colour changes while the user looks for one in the dialog. Cancelling the dialog takes back what was
/// chosen in it, and not what another control has set meanwhile.
QWidget* colorWell(ViewCore& view, ColorWellParts parts);

struct ColorSwatchParts {
    std::string label; ///< the accessible name
    std::function<Color()> color;
    std::function<double()> opacity; ///< from 0 to 1
};

/// The colour over a checkerboard.
QWidget* colorSwatch(ViewCore& view, ColorSwatchParts parts);

} // namespace korvane
