/// A field for a whole number that is not negative.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"

#include <string_view>

class QWidget;

namespace korvane {

/// Takes up to nine digits. While the user edits, the field keeps what is typed, and nothing stands for 0;
/// once it is left, it shows the number. `name` is the accessible name, `width` in pixels at a 13-pixel body
/// text.
QWidget* integerField(Store& store, std::string_view name, const Reader<int>& value,
                      const Action<int>& setValue, int width);

} // namespace korvane
