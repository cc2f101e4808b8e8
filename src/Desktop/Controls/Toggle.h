/// Options that are on or off: a switch or a checkbox, pressed together with its title.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"

#include <string_view>

class QWidget;

namespace korvane {

enum class ToggleLook {
    checkbox,    ///< a box before the title
    leadSwitch,  ///< a switch before the title
    trailSwitch, ///< a switch at the end of a row that takes the whole width
};

struct ToggleOptions {
    ToggleLook look = ToggleLook::trailSwitch;
    bool isSecondary = false; ///< the title is in the secondary colour
};

QWidget* toggle(Store& store, std::string_view title, const Reader<bool>& isOn, const Action<bool>& setOn,
                ToggleOptions options = {});

} // namespace korvane
