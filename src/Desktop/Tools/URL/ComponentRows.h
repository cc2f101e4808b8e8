/// The components of a URL as rows: a label, the value, and a button that copies it; as many rows as there
/// are at the moment.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Views/Tools/URLEncoderView.h"

#include <cstddef>
#include <vector>

class QWidget;

namespace korvane {

enum class ComponentLook {
    chip,  ///< the value on a tint of its colour
    plain, ///< label and value like code, and a button with its label
};

/// More rows than this are not shown, only told of: each costs a handful of widgets, and nobody reads them.
inline constexpr std::size_t mostComponentRows = 500;

QWidget* componentRows(Store& store, const Reader<std::vector<ComponentRow>>& rows, ComponentLook look);

} // namespace korvane
