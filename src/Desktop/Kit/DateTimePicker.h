/// A calendar of one month and a field for hour and minute, which together choose a moment in the user's time
/// zone. Seconds and what is finer stay as they are.
#pragma once

#include "Models/PaletteColor.h"

#include <chrono>
#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

using Moment = std::chrono::sys_time<std::chrono::milliseconds>;

struct DateTimePickerParts {
    std::string label;
    PaletteColor color; ///< of the chosen day
    std::function<Moment()> moment;
    std::function<void(Moment)> setMoment;
    std::function<Moment()> now; ///< for the mark on the present day
};

QWidget* dateTimePicker(ViewCore& view, DateTimePickerParts parts);

} // namespace korvane
