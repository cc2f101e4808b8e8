/// A read-only text in a panel with a labelled Copy button over its corner. The panel is as high as the text
/// up to a limit, beyond which the text scrolls.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

/// `name` is the panel's accessible name, and what the button says it copies. `placeholder` stands in
/// secondary colour while there is no text.
QWidget* resultPanel(ViewCore& view, std::string name, std::function<const std::string&()> text,
                     std::string placeholder);

} // namespace korvane
