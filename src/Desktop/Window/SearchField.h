/// A single line of text with a glyph before it and, while there is text, a button that clears it.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"

#include <string>

class QWidget;

namespace korvane {

struct SearchFieldParts {
    std::string placeholder; ///< also its accessible name
    Reader<std::string> text;
    Action<std::string> setText;
    Action<> leaveDown; ///< the user pressed Down, to go on to what the search found
    Action<> submit;    ///< the user pressed Return, to open the first that the search found
    Action<> leave;     ///< the user pressed Escape, which has cleared the field
};

QWidget* searchField(Store& store, const SearchFieldParts& parts);

} // namespace korvane
