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
    int stepsOfOne = 100;                    ///< the number of steps from 0 to 1; both ends are on a step
    bool isContinuous = true;                ///< whether the pointer can also choose values between steps
    PaletteColor color = PaletteColor::blue; ///< of the track up to the value
};

/// A value outside the range is shown at its end and remains unchanged until the user moves the slider. The
/// keys and, while the slider has the focus, the wheel go to the next step, also from a value between two
/// steps. The value of step `n` is never less than `n / stepsOfOne`, so a screen that truncates to whole
/// steps shows `n`.
QWidget* slider(Store& store, std::string_view name, const Reader<double>& value,
                const Action<double>& setValue, const SliderOptions& options = {});

} // namespace korvane
