/// Parts of a screen side by side, of which only some are seen at a time.
#pragma once

#include <functional>
#include <vector>

class QWidget;

namespace korvane {

class ViewCore;

struct Pane {
    std::function<bool()> isShown;
    QWidget* content;
};

/// The panes that are shown share the width equally. When others take their place, so does the keyboard
/// focus.
QWidget* panes(ViewCore& view, std::vector<Pane> all);

} // namespace korvane
