/// A single line of text with a glyph before it and, while there is text, a button that clears it.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct SearchFieldParts {
    std::string placeholder; ///< also its accessible name
    std::function<std::string()> text;
    std::function<void(std::string)> setText;
    std::function<void()> leaveDown; ///< the user pressed Down, to go on to what the search found
    std::function<void()> submit;    ///< the user pressed Return, to have what the search found first
    std::function<void()> leave;     ///< the user pressed Escape, which has cleared the field
};

QWidget* searchField(ViewCore& view, SearchFieldParts parts);

} // namespace korvane
