/// A choice of one among a few, all of them visible side by side.
#pragma once

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace korvane {

class ViewCore;

enum class SegmentLook {
    even,      ///< all of one width
    natural,   ///< each with the room that its title needs, and a share of what is left
    withIcons, ///< the same, with the glyphs of the values before the titles
};

struct SegmentedPickerParts {
    std::string label; ///< the accessible name of the whole
    std::vector<std::string> titles;
    std::vector<std::string> icons; ///< before the titles; empty: none
    int width; ///< at least, in pixels at a 13-pixel body text; 0: as wide as its titles need
    SegmentLook look;
    std::function<int()> selected;
    std::function<void(int)> select;
};

QWidget* segmentedPicker(ViewCore& view, SegmentedPickerParts parts);

} // namespace korvane
