/// A single-line text field with a leading glyph and, while it is not empty, a button that clears it.
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
    Action<> leaveDown; ///< on Down: move to the search results
    Action<> submit;    ///< on Return: open the first result
    Action<> leave;     ///< on Escape, which has cleared the field
};

QWidget* searchField(Store& store, const SearchFieldParts& parts);

} // namespace korvane
