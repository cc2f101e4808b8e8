/// A calendar of one month and a field for hour and minute, which together choose a moment in the user's time
/// zone. Seconds and milliseconds are kept.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Models/PaletteColor.h"

#include <chrono>
#include <string>

class QWidget;

namespace korvane {

using Moment = std::chrono::sys_time<std::chrono::milliseconds>;

struct DateTimePickerParts {
    std::string label;
    PaletteColor color; ///< of the chosen day
    Reader<Moment> moment;
    Action<Moment> setMoment;
    Reader<Moment> now; ///< for the mark on the present day
};

QWidget* dateTimePicker(Store& store, const DateTimePickerParts& parts);

} // namespace korvane
