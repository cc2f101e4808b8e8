/// A titled part of a screen.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <string>

class QWidget;

namespace korvane {

/// A heading above `content`: a glyph, while `icon` names one, and the title in upper case; at its right end
/// `trailing`, where there is one. The content takes the title as its accessible name.
QWidget* section(Store& store, const Reader<std::string>& title, const Reader<std::string>& icon,
                 QWidget* content, QWidget* trailing = nullptr);

} // namespace korvane
