/// A panel that shows a text which is computed from the state whenever it is read, rather than kept in it.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <string>

class QWidget;

namespace korvane {

/// The text is small, selectable, and clear of a labelled button over the top right corner.
QWidget* computedOutput(Store& store, const Reader<std::string>& text);

} // namespace korvane
