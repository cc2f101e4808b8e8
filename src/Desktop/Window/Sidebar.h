/// The sidebar: brand, search, the list of tools and the privacy footer.
#pragma once

#include "Desktop/Binding/Store.h"
#include "Views/ContentView.h"

#include <functional>

class QWidget;

namespace korvane {

/// The inset of the sidebar's texts, in pixels at a 13-pixel body text.
inline constexpr int sidebarTextInset = 18;

/// Builds the sidebar from the window's state, with `menuStrip` at its top. The search field is its focus
/// proxy. `leave` is called when the focus is to move to the screen: by Escape, or when a tool is opened by
/// keyboard.
QWidget* sidebar(Store& store, QWidget* menuStrip, std::function<void()> leave);

} // namespace korvane
