/// Options that are on or off: a switch or a checkbox with its title, which is pressed as one.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

enum class ToggleLook {
    checkbox,    ///< a box before the title
    leadSwitch,  ///< a switch before the title
    trailSwitch, ///< a switch at the end of a row that takes the whole width
};

struct ToggleOptions {
    ToggleLook look = ToggleLook::trailSwitch;
    bool isSecondary = false; ///< the title is in the secondary colour
};

struct ToggleParts {
    std::string title;
    std::function<bool()> isOn;
    std::function<void(bool)> setOn;
    ToggleOptions options;
};

QWidget* toggle(ViewCore& view, ToggleParts parts);

} // namespace korvane
