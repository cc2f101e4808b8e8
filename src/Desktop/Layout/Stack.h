/// How controls are set beside and below each other. Distances are in pixels at a 13-pixel body text. A child
/// that can grow takes the room that is left; the others keep their size.
#pragma once

#include "Desktop/Look/Theme.h"

#include <QMargins>
#include <QWidget>

#include <initializer_list>
#include <vector>

namespace korvane {

/// A child of a row or column: a widget, or free room that grows.
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
    bool equalShares = false; ///< every child without a share of its own gets the same length
};

/// Lays `items` out inside `container`, one after the other.
void fill(QWidget* container, Qt::Orientation orientation, const StackOptions& options,
          std::initializer_list<Item> items);

/// A new widget that holds `items`.
QWidget* stack(Qt::Orientation orientation, const StackOptions& options, std::initializer_list<Item> items);

/// Controls side by side.
QWidget* row(std::initializer_list<Item> items);

/// Sections side by side, each with the same width.
QWidget* columns(std::initializer_list<Item> items);

/// Controls side by side that go on in further lines where the room is too narrow. What follows a stretch
/// stands at the right end of its line.
QWidget* wrappingRow(std::initializer_list<Item> items, int spacing = Theme::Size::gapControl);

struct GridOptions {
    int columnGap = Theme::Size::gapControl;
    int rowGap = Theme::Size::gapControl;
    bool hasEvenRows = false; ///< all as high as the highest
};

/// Widgets in rows of `columnCount`, all columns of the same width as far as that is enough for each.
QWidget* grid(int columnCount, const GridOptions& options, const std::vector<QWidget*>& items);

/// `widget` in the middle of the width, below some room of its own, in pixels at a 13-pixel body text.
QWidget* centered(QWidget* widget, int roomAbove = 0);

/// `widget` with a fixed height or width, in pixels at a 13-pixel body text.
QWidget* withHeight(int height, QWidget* widget);
QWidget* withWidth(int width, QWidget* widget);

/// `widget`, which can grow but is never lower than that.
QWidget* withMinimumHeight(int height, QWidget* widget);

/// `widget`, taking the room that is left in the stack around it.
QWidget* growing(QWidget* widget);

/// The same beside others that do so too: the whole length of each is in proportion to its `share`, as far as
/// that is enough for it.
QWidget* sharing(int share, QWidget* widget);

/// `widget` in the width, or in the height, that it would like, however much room there is.
QWidget* rigid(QWidget* widget);
QWidget* rigidHeight(QWidget* widget);

} // namespace korvane
