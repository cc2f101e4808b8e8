/// A value on a track between two ends.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Models/PaletteColor.h"

#include <string_view>

class QWidget;

namespace korvane {

struct SliderOptions {
    double minimum = 0; ///< not negative
    double maximum = 1;
    int stepsOfOne = 100;     ///< how many steps of the arrow keys make 1; both ends lie on a step
    bool isContinuous = true; ///< whether the pointer also chooses values between two steps
    PaletteColor color = PaletteColor::blue; ///< of the track up to the value
};

/// A value beyond the ends is shown at the end and stays what it is until the user moves the slider. The keys
/// and, while the slider has the focus, the wheel go from step to step, wherever between two of them the
/// value is. The value of step `n` is never less than `n / stepsOfOne`: a screen that cuts off what follows
/// the whole steps shows `n`.
QWidget* slider(Store& store, std::string_view name, const Reader<double>& value,
                const Action<double>& setValue, const SliderOptions& options = {});

} // namespace korvane
