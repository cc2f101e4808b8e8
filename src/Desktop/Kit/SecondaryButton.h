/// A button as large as a screen's primary action, for what comes beside it.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct SecondaryButtonParts {
    std::string title;
    std::string icon{};       ///< an empty name shows the title alone
    bool isProminent = false; ///< its title is bold, and not in the secondary colour
    std::function<bool()> isDisabled = [] { return false; };
    std::function<void()> action;
};

/// Takes its share of the row's width, where shares are given.
QWidget* secondaryButton(ViewCore& view, SecondaryButtonParts parts);

} // namespace korvane
