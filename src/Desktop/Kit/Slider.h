/// A value on a track between two ends.
#pragma once

#include "Models/PaletteColor.h"

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct SliderOptions {
    double minimum = 0;
    double maximum = 1;
    double step = 0; ///< the distance between two values that can be chosen; 0: as fine as there are pixels
    PaletteColor color = PaletteColor::blue; ///< of the track up to the value
};

struct SliderParts {
    std::string name; ///< the accessible name
    std::function<double()> value;
    std::function<void(double)> setValue;
    SliderOptions options;
};

/// A value beyond the ends is shown at the end and stays what it is until the user moves the slider.
QWidget* slider(ViewCore& view, SliderParts parts);

} // namespace korvane
