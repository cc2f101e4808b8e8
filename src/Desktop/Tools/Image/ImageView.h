/// A picture, as large as its place allows.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Utilities/ImageConverter.h"

#include <optional>
#include <string_view>

class QWidget;

namespace korvane {

/// Shows what `image` reads, as `ImageConverter::preview` makes it, or nothing. With a checkerboard below and
/// around it, what is transparent can be told. `name` is the accessible name.
QWidget* picture(Store& store, std::string_view name, const Reader<std::optional<Image>>& image,
                 bool hasCheckerboard = false);

/// A panel that says `text` where a picture would be.
QWidget* picturePlaceholder(std::string_view text);

} // namespace korvane
