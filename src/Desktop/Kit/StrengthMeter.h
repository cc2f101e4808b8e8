/// How strong a password is: five bars side by side, of which the weakest lights one and the strongest all,
/// and the word for it. Assistive technology reads the word and passes over the bars.
#pragma once

#include "Desktop/Kit/View.h"
#include "Utilities/PasswordGenerator.h"

#include <functional>

class QWidget;

namespace korvane {

QWidget* strengthMeter(ViewCore& view, std::function<PasswordStrength()> strength);

template <typename State, typename Reader>
QWidget* strengthMeter(View<State>& view, Reader strength) {
    return strengthMeter(static_cast<ViewCore&>(view), view.template reading<PasswordStrength>(strength));
}

} // namespace korvane
