/// A panel for a text that is computed from the state on every read instead of stored in it.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <string>

class QWidget;

namespace korvane {

/// The text is small and selectable, and leaves space for a labelled button over the top right corner.
QWidget* computedOutput(Store& store, const Reader<std::string>& text);

} // namespace korvane
