/// The frame of every screen: a header, and below it a body that scrolls if it does not fit.
#pragma once

#include "Desktop/Layout/Stack.h"

#include <initializer_list>

class QWidget;

namespace korvane {

class Store;

/// A screen is narrow below this width, in pixels at a 13-pixel body text.
inline constexpr int narrowWidth = 640;

/// The body also scrolls horizontally, for desktops smaller than the window's minimum size. The width class
/// of `store` is updated when the screen becomes narrow or wide.
QWidget* screen(Store& store, QWidget* header, std::initializer_list<Item> items);

/// Scrolls the screen around `widget` to make it visible, after the layout has adapted to its new content.
void bringIntoView(QWidget* widget);

} // namespace korvane
