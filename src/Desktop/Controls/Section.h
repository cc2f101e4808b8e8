/// A titled part of a screen.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <string>

class QWidget;

namespace korvane {

/// A heading above `content`: a glyph unless `icon` is empty, the title in upper case, and the optional
/// `trailing` at the right end. The title is the accessible name of the content.
QWidget* section(Store& store, const Reader<std::string>& title, const Reader<std::string>& icon,
                 QWidget* content, QWidget* trailing = nullptr);

} // namespace korvane
