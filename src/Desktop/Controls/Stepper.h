/// An integer between two bounds, with a button to decrease and one to increase it. It can also be typed, and
/// changed by the arrow keys.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"

#include <string>
#include <string_view>

class QWidget;

namespace korvane {

struct StepperOptions {
    int minimum = 0;
    int maximum = 100;
    int step = 1;
    int width = 120; ///< in pixels at a 13-pixel body text
};

QWidget* stepper(Store& store, std::string_view name, const Reader<int>& value, const Action<int>& setValue,
                 const StepperOptions& options = {});

struct StepperLabel {
    Reader<std::string> text;
    int width; ///< in pixels at a 13-pixel body text
};

/// A stepper that shows only its two buttons, after a label that contains the number. A press on the label
/// focuses the number, so that typing replaces it.
QWidget* labelledStepper(Store& store, std::string_view name, const Reader<int>& value,
                         const Action<int>& setValue, const StepperLabel& label,
                         const StepperOptions& options = {});

} // namespace korvane
