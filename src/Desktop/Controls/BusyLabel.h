/// A ring that turns, and a text beside it that says what goes on.
#pragma once

#include <string_view>

class QWidget;

namespace korvane {

/// Turns while it is visible. How far the work has got is not known here.
QWidget* busyLabel(std::string_view text);

} // namespace korvane
