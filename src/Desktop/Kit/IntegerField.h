/// A field for a whole number that is not negative.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct IntegerFieldParts {
    std::string name; ///< the accessible name
    std::function<int()> value;
    std::function<void(int)> setValue;
    int width = 0; ///< in pixels at a 13-pixel body text
};

/// Takes up to nine digits. While the user edits, the field keeps what is typed, and nothing stands for 0;
/// once it is left, it shows the number.
QWidget* integerField(ViewCore& view, IntegerFieldParts parts);

} // namespace korvane
