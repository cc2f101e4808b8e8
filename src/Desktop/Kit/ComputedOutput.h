/// A panel that shows a text which is computed from the state whenever it is read, rather than kept in it.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

/// The text is small, selectable, and clear of a labelled button over the top right corner.
QWidget* computedOutput(ViewCore& view, std::function<std::string()> text);

} // namespace korvane
