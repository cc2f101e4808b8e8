/// A card that explains patterns: each in red above its meaning, in columns of the same width.
#pragma once

#include "Views/Tools/RegexTesterView.h"

#include <span>
#include <string_view>

class QWidget;

namespace korvane {

QWidget* referenceCard(std::string_view title, std::string_view icon, int columnCount,
                       std::span<const RegexCheatItem> items);

} // namespace korvane
