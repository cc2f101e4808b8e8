/// A button as large as a screen's primary action, for what comes beside it.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"

#include <string_view>

class QWidget;

namespace korvane {

struct SecondaryButtonOptions {
    bool isProminent = false; ///< the title is bold, and not in the secondary colour
    Reader<bool> isDisabled = false;
};

/// Takes its share of the row's width, where shares are given. With an empty name of a glyph the title stands
/// alone.
QWidget* secondaryButton(Store& store, std::string_view title, std::string_view icon, const Action<>& action,
                         const SecondaryButtonOptions& options = {});

} // namespace korvane
