/// The arrangement of controls in rows, columns and grids. Distances are in pixels at a 13-pixel body text.
/// Children that can grow take the remaining space; the others keep their size.
#pragma once

#include "Desktop/Look/Theme.h"

#include <QMargins>
#include <QWidget>

#include <initializer_list>
#include <vector>

namespace korvane {

/// A child of a row or column: a widget, or space that grows.
struct Item {
    QWidget* widget = nullptr;

    Item(QWidget* child) : widget(child) {}
};

inline Item stretch() {
    return nullptr;
}

struct StackOptions {
    int spacing = Theme::Size::gapControl;
    QMargins padding{};
    bool equalShares = false; ///< children without a share of their own get equal lengths
};

/// Lays out `items` in sequence inside `container`.
void fill(QWidget* container, Qt::Orientation orientation, const StackOptions& options,
          std::initializer_list<Item> items);

/// A new widget that holds `items`.
QWidget* stack(Qt::Orientation orientation, const StackOptions& options, std::initializer_list<Item> items);

/// Controls side by side.
QWidget* row(std::initializer_list<Item> items);

/// Sections side by side, each with the same width.
QWidget* columns(std::initializer_list<Item> items);

/// Controls side by side that wrap onto further lines where the width is insufficient. Items after a stretch
/// are aligned to the right of their line.
QWidget* wrappingRow(std::initializer_list<Item> items, int spacing = Theme::Size::gapControl);

struct GridOptions {
    int columnGap = Theme::Size::gapControl;
    int rowGap = Theme::Size::gapControl;
    bool hasEvenRows = false; ///< all rows have the height of the highest
};

/// Widgets in rows of `columnCount`. All columns have the same width unless one needs more.
QWidget* grid(int columnCount, const GridOptions& options, const std::vector<QWidget*>& items);

/// `widget`, centred horizontally below a free space, in pixels at a 13-pixel body text.
QWidget* centered(QWidget* widget, int spaceAbove = 0);

/// `widget` with a fixed height or width, in pixels at a 13-pixel body text.
QWidget* withHeight(int height, QWidget* widget);
QWidget* withWidth(int width, QWidget* widget);

/// `widget` with a minimum height, above which it can grow.
QWidget* withMinHeight(int height, QWidget* widget);

/// `widget`, which takes the remaining space in its stack.
QWidget* growing(QWidget* widget);

/// The same, but in proportion to `share`: among several such widgets the whole lengths are proportional,
/// unless one needs more.
QWidget* sharing(int share, QWidget* widget);

/// `widget` in its preferred width, or at most its preferred height, whatever the available space.
QWidget* rigid(QWidget* widget);
QWidget* rigidHeight(QWidget* widget);

} // namespace korvane
