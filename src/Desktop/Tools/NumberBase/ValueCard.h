/// A card with a title and, below it, a value that can be selected and copied.
#pragma once

#include "Desktop/Binding/Reader.h"
#include "Models/PaletteColor.h"

#include <string>

class QWidget;

namespace korvane {

struct ValueCardParts {
    std::string title;
    std::string icon;
    PaletteColor color; ///< of the glyph and of the outline
    std::string caption;
    Reader<std::string> note; ///< beside the title
    Reader<std::string> value;
    Reader<bool> isOutlined;
};

QWidget* valueCard(Store& store, const ValueCardParts& parts);

} // namespace korvane
