/// A picture, as large as its place allows.
#pragma once

#include "Utilities/ImageConverter.h"

#include <functional>
#include <optional>
#include <string>

class QWidget;

namespace korvane {

class ViewCore;

struct ImageViewParts {
    std::string name; ///< for assistive technology
    /// What to show, as `ImageConverter::preview` makes it; nothing is shown while there is none.
    std::function<std::optional<Image>()> image;
    bool hasCheckerboard = false; ///< below it and around, as on a panel: what is transparent can be told
};

QWidget* imageView(ViewCore& view, ImageViewParts parts);

/// A panel that says `text` where a picture would be.
QWidget* imagePlaceholder(const std::string& text);

} // namespace korvane
