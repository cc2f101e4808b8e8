/// A picture, scaled to the available space.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Utilities/ImageConverter.h"

#include <optional>
#include <string_view>

class QWidget;

namespace korvane {

/// Shows `image`, as `ImageConverter::preview` makes it, or nothing. A checkerboard below and around it makes
/// transparency visible. `name` is the accessible name.
QWidget* picture(Store& store, std::string_view name, const Reader<std::optional<Image>>& image,
                 bool hasCheckerboard = false);

/// A panel with `text` in place of a picture.
QWidget* picturePlaceholder(std::string_view text);

} // namespace korvane
