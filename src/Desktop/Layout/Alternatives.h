/// Parts of a screen that are shown only at times.
#pragma once

#include "Desktop/Binding/Reader.h"

#include <vector>

class QWidget;

namespace korvane {

/// `widget`, shown only while `condition` reads true.
QWidget* when(Store& store, const Reader<bool>& condition, QWidget* widget);

/// One of two widgets in the same place. When the other one takes its place, it takes the keyboard focus too.
QWidget* either(Store& store, const Reader<bool>& condition, QWidget* yes, QWidget* no);

struct Pane {
    Reader<bool> isShown;
    QWidget* content;
};

/// Panes side by side that share the width equally while they are shown. When others take their place, these
/// take the keyboard focus too.
QWidget* panes(Store& store, const std::vector<Pane>& all);

/// Shows or hides a part of a screen, also while the screen is still being built: shown before it has a
/// parent, it would be a window of its own for a moment.
void setShown(QWidget* widget, bool isShown);

} // namespace korvane
