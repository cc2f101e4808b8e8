/// The sidebar: brand, search, the list of tools and the privacy footer.
#pragma once

#include "Desktop/Binding/Store.h"
#include "Views/ContentView.h"

#include <functional>

class QWidget;

namespace korvane {

/// Where texts of the sidebar begin, in pixels at a 13-pixel body text.
inline constexpr int sidebarTextInset = 18;

/// Builds the sidebar on the window's state. `menuStrip` takes its place at the top. The search field takes
/// the focus for the whole. `leave` is called when the user leaves the sidebar by Escape.
QWidget* sidebar(Store& store, QWidget* menuStrip, std::function<void()> leave);

} // namespace korvane
