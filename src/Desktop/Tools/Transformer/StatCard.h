/// A card with a figure.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Models/PaletteColor.h"

#include <string>
#include <string_view>

class QWidget;

namespace korvane {

/// Glyph and tint are in `color`, the value is large, the title below it.
QWidget* statCard(Store& store, std::string_view title, const Reader<std::string>& value,
                  std::string_view icon, PaletteColor color);

} // namespace korvane
