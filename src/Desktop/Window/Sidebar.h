/// The sidebar: brand, search, the list of tools and the privacy footer.
#pragma once

#include "Desktop/Kit/View.h"
#include "Views/ContentView.h"

class QWidget;

namespace korvane {

/// Builds the sidebar on the window's state. `menuBar` takes its place in the strip at the top.
QWidget* sidebar(View<ContentView>& view, QWidget* menuStrip);

} // namespace korvane
