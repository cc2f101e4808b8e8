/// How controls are set beside and below each other. Distances are in pixels at a 13-pixel body text. A child
/// that can grow takes the room that is left; the others keep their size.
#pragma once

#include "Desktop/Kit/Theme.h"

#include <QMargins>
#include <QWidget>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>

namespace korvane {

class ViewCore;

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

/// Widgets in lines of `columnCount`, all of the same width, and of the same height.
QWidget* grid(int columnCount, int spacing, std::initializer_list<QWidget*> items);

struct CardOptions {
    Qt::Orientation orientation = Qt::Vertical;
    int spacing = Theme::Size::gapControl;
    QMargins padding{Theme::Size::cardPadding, Theme::Size::cardPadding, Theme::Size::cardPadding,
                     Theme::Size::cardPadding};
    int radius = Theme::Size::radiusMedium;
    bool hasOutline = true;
    std::optional<PaletteColor> tint{}; ///< in place of the panels' neutral tint
};

/// A tinted surface with rounded corners around `items`.
QWidget* card(const CardOptions& options, std::initializer_list<Item> items);

/// `widget` with a fixed height or width, in pixels at a 13-pixel body text.
QWidget* withHeight(int height, QWidget* widget);
QWidget* withWidth(int width, QWidget* widget);

/// `widget`, which can grow but is never lower than that.
QWidget* withMinimumHeight(int height, QWidget* widget);

/// Shows or hides a part of a screen, also while the screen is still being built: shown before it has a
/// parent, it would be a window of its own for a moment.
void setShown(QWidget* widget, bool isShown);

/// `widget`, taking the room that is left in the stack around it.
QWidget* growing(QWidget* widget);

/// The same beside others that do so too: the whole length of each is in proportion to its `share`, as far as
/// that is enough for it.
QWidget* sharing(int share, QWidget* widget);

/// Whether the screen around `widget` is narrow by now.
bool isInNarrowScreen(const QWidget* widget);

/// `widget` in the width, or in the height, that it would like, however much room there is.
QWidget* rigid(QWidget* widget);
QWidget* rigidHeight(QWidget* widget);

/// A screen: the header stays, and what is below scrolls when it does not fit, sideways too where even the
/// smallest window is more than the desktop has room for. Quiet buttons drop their labels while the screen is
/// narrow.
QWidget* screen(QWidget* header, std::initializer_list<Item> items);

/// Scrolls the screen around `widget` so far that it is seen, once the layout has room for what it shows now.
void bringIntoView(QWidget* widget);

/// A heading above `content`, with `trailing` at its right end where there is one.
QWidget* section(ViewCore& view, std::function<std::string()> title, std::function<std::string()> icon,
                 QWidget* content, QWidget* trailing = nullptr);

/// `button` laid over the top right corner of `panel`.
QWidget* overlay(QWidget* panel, QWidget* button);

/// One of two widgets in the same place. When they change, the focus stays in that place.
QWidget* either(ViewCore& view, std::function<bool()> condition, QWidget* yes, QWidget* no);

/// The widget that takes the keyboard focus for `widget`: the editor in a panel, or `widget` itself.
QWidget* focusTarget(QWidget* widget);

} // namespace korvane
