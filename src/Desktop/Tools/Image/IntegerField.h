/// A field for a non-negative integer.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"

#include <string_view>

class QWidget;

namespace korvane {

/// Accepts up to nine digits. While the user edits, the field keeps the typed text, and an empty text means
/// 0; on leaving it shows the number. `name` is the accessible name, `width` in pixels at a 13-pixel body
/// text.
QWidget* integerField(Store& store, std::string_view name, const Reader<int>& value,
                      const Action<int>& setValue, int width);

} // namespace korvane
