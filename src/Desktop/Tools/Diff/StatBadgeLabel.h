/// A count on a tinted badge, with a dot in its colour.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Views/Components/StatBadge.h"

class QWidget;

namespace korvane {

QWidget* statBadge(Store& store, const Reader<StatBadge>& badge);

} // namespace korvane
