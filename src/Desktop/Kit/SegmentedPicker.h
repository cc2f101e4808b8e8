/// A choice of one among a few, all of them visible side by side.
#pragma once

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace korvane {

class ViewCore;

struct SegmentedPickerParts {
    std::string label; ///< the accessible name of the whole
    std::vector<std::string> titles;
    int width; ///< in pixels at a 13-pixel body text
    std::function<int()> selected;
    std::function<void(int)> select;
};

QWidget* segmentedPicker(ViewCore& view, SegmentedPickerParts parts);

} // namespace korvane
