/// Where the rows of a list are from top to bottom. A list asks only for the rows that it shows, so a million
/// of any heights cost as little as ten, if their places do.
#pragma once

#include <functional>

namespace korvane {

/// From where to where a row reaches.
struct RowSpan {
    int top = 0;
    int height = 0;

    int bottom() const { return top + height; } ///< just below it
};

/// All places are in pixels from the top of what the list scrolls.
struct RowPlaces {
    std::function<RowSpan(int row)> of;
    std::function<int(int y)> nearest; ///< the row at `y`, or else the nearest one, where there are rows
    int height = 0;                    ///< of all rows and of what is around them
    int line = 0;                      ///< the height that steps and pages of the list are made of
    /// Where given, what is scrolled into sight with a row.
    std::function<RowSpan(int row)> surroundings = nullptr;
    bool takeGaps = false; ///< the pointer beside the rows is over the nearest one
};

/// Rows of one height.
RowPlaces evenRows(int count, int height);

/// Rows of which each has its height. They are all asked for theirs: for lists of a few hundred rows at most.
RowPlaces stackedRows(int count, int line, const std::function<int(int row)>& height);

} // namespace korvane
