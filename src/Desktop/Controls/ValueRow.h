/// The ways in which a screen shows one of several results: in a row of a list, or in a card of its own.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Desktop/Look/Theme.h"
#include "Models/PaletteColor.h"

#include <string>
#include <vector>

class QWidget;

namespace korvane {

struct ValueRowParts {
    QWidget* label;   ///< what stands before the value
    std::string name; ///< the accessible name of the value, and what Copy acts on
    Reader<std::string> value;
    Theme::TextStyle style = Theme::TextStyle::codeSmall;
    Theme::Ink ink = Theme::Role::primary;
    int height; ///< at least, in pixels at a 13-pixel body text; a value that wraps takes more
    int gap;    ///< between label, value and button, in such pixels
};

/// A label, a value that can be selected, and a button that copies it.
QWidget* valueRow(Store& store, const ValueRowParts& parts);

/// A card with `rows` and a line between each two.
QWidget* dividedRows(const std::vector<QWidget*>& rows);

} // namespace korvane
