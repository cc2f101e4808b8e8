/// The frame of every screen: a header, and below it what scrolls when it does not fit.
#pragma once

#include "Desktop/Layout/Stack.h"

#include <initializer_list>

class QWidget;

namespace korvane {

class Store;

/// A screen is narrow below this width, in pixels at a 13-pixel body text.
inline constexpr int narrowWidth = 640;

/// The part below the header also scrolls sideways, where even the smallest window is more than the desktop
/// has room for. `store` is told whenever the screen becomes narrow or wide.
QWidget* screen(Store& store, QWidget* header, std::initializer_list<Item> items);

/// Scrolls the screen around `widget` so far that it is visible, once the layout has room for its new
/// content.
void bringIntoView(QWidget* widget);

} // namespace korvane
