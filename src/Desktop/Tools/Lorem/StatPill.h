/// A small counter on its own card, for a row of them.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Views/Components/StatPill.h"

class QWidget;

namespace korvane {

QWidget* statPill(Store& store, const Reader<StatPill>& pill);

} // namespace korvane
