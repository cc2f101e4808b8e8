/// Figures beside each other, each with a dot in its colour on a tint of it.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Views/Components/StatBadge.h"

class QWidget;

namespace korvane {

QWidget* statBadge(Store& store, const Reader<StatBadge>& badge);

} // namespace korvane
