/// A value on a track between two ends.
#pragma once

#include "Models/PaletteColor.h"

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct SliderOptions {
    double minimum = 0; ///< not negative
    double maximum = 1;
    int stepsOfOne = 100;     ///< how many steps of the arrow keys make 1; both ends lie on a step
    bool isContinuous = true; ///< whether the pointer also chooses values between two steps
    PaletteColor color = PaletteColor::blue; ///< of the track up to the value
};

struct SliderParts {
    std::string name; ///< the accessible name
    std::function<double()> value;
    std::function<void(double)> setValue;
    SliderOptions options;
};

/// A value beyond the ends is shown at the end and stays what it is until the user moves the slider. The keys
/// and, while the slider has the focus, the wheel go from step to step, wherever between two of them the
/// value is. The value of step `n` is never less than `n / stepsOfOne`: a screen that cuts off what follows
/// the whole steps shows `n`.
QWidget* slider(ViewCore& view, SliderParts parts);

} // namespace korvane
