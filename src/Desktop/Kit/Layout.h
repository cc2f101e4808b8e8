/// How controls are set beside and below each other. Distances are in pixels at a 13-pixel body text. A child
/// that can grow takes the room that is left; the others keep their size.
#pragma once

#include "Desktop/Kit/Theme.h"

#include <QMargins>
#include <QWidget>

#include <functional>
#include <initializer_list>
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
    bool equalShares = false; ///< every child gets the same length, whatever it would like
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

/// A screen: the header stays, and what is below scrolls when it does not fit. Quiet buttons drop their
/// labels while the screen is narrow.
QWidget* screen(QWidget* header, std::initializer_list<Item> items);

QWidget* section(ViewCore& view, std::function<std::string()> title, std::string icon, QWidget* content);

/// `button` laid over the top right corner of `panel`.
QWidget* overlay(QWidget* panel, QWidget* button);

QWidget* either(ViewCore& view, std::function<bool()> condition, QWidget* yes, QWidget* no);

/// The widget that takes the keyboard focus for `widget`: the editor in a panel, or `widget` itself.
QWidget* focusTarget(QWidget* widget);

} // namespace korvane
