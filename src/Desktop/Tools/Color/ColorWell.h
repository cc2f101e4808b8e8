/// Controls for one colour: a well that shows it and opens Qt's colour dialog, and a swatch that shows its
/// opacity.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Models/Color.h"

#include <string_view>

class QWidget;

namespace korvane {

/// The colour changes while the user tries colours in the dialog. Cancelling the dialog reverts only what was
/// chosen in it, not what another control has set meanwhile.
QWidget* colorWell(Store& store, std::string_view label, const Reader<Color>& color,
                   const Action<Color>& setColor);

/// The colour over a checkerboard, at an opacity from 0 to 1. `label` is the accessible name.
QWidget* colorSwatch(Store& store, std::string_view label, const Reader<Color>& color,
                     const Reader<double>& opacity);

} // namespace korvane
