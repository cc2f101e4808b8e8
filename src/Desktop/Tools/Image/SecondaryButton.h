/// A secondary action in a button as large as the primary one.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"

#include <string_view>

class QWidget;

namespace korvane {

struct SecondaryButtonOptions {
    bool isProminent = false; ///< the title is bold and in the primary colour
    Reader<bool> isDisabled = false;
};

/// Takes a share of the row's width if the row assigns shares. With an empty icon name, only the title is
/// shown.
QWidget* secondaryButton(Store& store, std::string_view title, std::string_view icon, const Action<>& action,
                         const SecondaryButtonOptions& options = {});

} // namespace korvane
