/// The components of a URL as a variable number of rows: a label, the value, and a button that copies it.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Views/Tools/URLEncoderView.h"

#include <cstddef>

class QWidget;

namespace korvane {

enum class ComponentLook {
    chip,  ///< the value is on a tint of its colour
    plain, ///< label and value are set as code, and the button has a label
};

/// Further rows are only counted, not shown: each costs several widgets, and users do not read that many.
inline constexpr std::size_t maxComponentRows = 500;

QWidget* componentRows(Store& store, const Reader<SharedComponentRows>& rows, ComponentLook look);

} // namespace korvane
