/// How strong a password is: five bars side by side, of which the weakest lights one and the strongest all,
/// and the word for it. Assistive technology reads the word and passes over the bars.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Utilities/PasswordGenerator.h"

class QWidget;

namespace korvane {

QWidget* strengthMeter(Store& store, const Reader<PasswordStrength>& strength);

} // namespace korvane
