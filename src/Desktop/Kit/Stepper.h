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
    int width = 120; ///< in pixels at a 13-pixel body text
};

struct StepperParts {
    std::string name; ///< the accessible name
    std::function<int()> value;
    std::function<void(int)> setValue;
    StepperOptions options;
};

QWidget* stepper(ViewCore& view, StepperParts parts);

struct StepperLabel {
    std::function<std::string()> text;
    int width; ///< in pixels at a 13-pixel body text
};

/// A stepper of which only the two buttons are seen, behind a label that tells the number. A press on the
/// label is one into the number: what is typed then replaces it.
QWidget* labelledStepper(ViewCore& view, StepperParts parts, StepperLabel label);

} // namespace korvane
