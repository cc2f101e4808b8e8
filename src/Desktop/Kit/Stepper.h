/// A whole number between two bounds with a button for less and one for more. It can be typed as well, and
/// changed by the arrow keys.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct StepperOptions {
    int minimum = 0;
    int maximum = 100;
    int step = 1;
    int width = 120;        ///< in pixels at a 13-pixel body text
    bool showsValue = true; ///< between the buttons; otherwise it is shown elsewhere
};

struct StepperParts {
    std::string name; ///< the accessible name
    std::function<int()> value;
    std::function<void(int)> setValue;
    StepperOptions options;
};

QWidget* stepper(ViewCore& view, StepperParts parts);

} // namespace korvane
