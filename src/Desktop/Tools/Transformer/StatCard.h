/// A card with a statistic.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Models/PaletteColor.h"

#include <string>
#include <string_view>

class QWidget;

namespace korvane {

/// Glyph and tint are in `color`; the title is below the large value.
QWidget* statCard(Store& store, std::string_view title, const Reader<std::string>& value,
                  std::string_view icon, PaletteColor color);

} // namespace korvane
