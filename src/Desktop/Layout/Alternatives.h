/// Parts of a screen that are shown conditionally.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <vector>

class QWidget;

namespace korvane {

/// `widget`, visible only while `condition` is true.
QWidget* when(Store& store, const Reader<bool>& condition, QWidget* widget);

/// `yes` while `condition` is true, otherwise `no`, in the same place. A widget that replaces the focused one
/// takes over the keyboard focus.
QWidget* either(Store& store, const Reader<bool>& condition, QWidget* yes, QWidget* no);

struct Pane {
    Reader<bool> isShown;
    QWidget* content;
};

/// The shown panes side by side, with equal widths. Panes that replace the focused one take over the keyboard
/// focus.
QWidget* panes(Store& store, const std::vector<Pane>& all);

/// Shows or hides a part of a screen, also during the screen's construction: showing a widget without a
/// parent would open it briefly as a window.
void setShown(QWidget* widget, bool isShown);

} // namespace korvane
