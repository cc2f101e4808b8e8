/// Figures beside each other, each with a dot in its colour on a tint of it.
#pragma once

#include "Views/Components/StatBadge.h"

#include <functional>

class QWidget;

namespace korvane {

class ViewCore;

QWidget* statBadge(ViewCore& view, std::function<StatBadge()> badge);

} // namespace korvane
