/// The strength of a password: five bars, of which the weakest password lights one and the strongest all, and
/// a word. Assistive technology reads the word and skips the bars.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Utilities/PasswordGenerator.h"

class QWidget;

namespace korvane {

QWidget* strengthMeter(Store& store, const Reader<PasswordStrength>& strength);

} // namespace korvane
