/// Rows of a list of results.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Desktop/Look/Theme.h"
#include "Models/PaletteColor.h"

#include <string>
#include <vector>

class QWidget;

namespace korvane {

struct ValueRowParts {
    QWidget* label;   ///< before the value
    std::string name; ///< the accessible name of the value, and the subject of its Copy button
    Reader<std::string> value;
    Theme::TextStyle style = Theme::TextStyle::codeSmall;
    Theme::Ink ink = Theme::Role::primary;
    int height; ///< minimum, in pixels at a 13-pixel body text; a wrapped value takes more
    int gap;    ///< between label, value and button, in the same unit
};

/// A label, a selectable value, and a button that copies it.
QWidget* valueRow(Store& store, const ValueRowParts& parts);

/// A card with `rows`, separated by lines.
QWidget* dividedRows(const std::vector<QWidget*>& rows);

} // namespace korvane
