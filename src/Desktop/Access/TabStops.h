/// The controls at which the Tab key stops, in reading order. Qt's own order is that of creation, in which a
/// control that is created later comes last wherever it is.
#pragma once

#include <vector>

class QWidget;

namespace korvane {

/// Whether the Tab key stops at `widget` in its present state: shown, enabled and focusable by Tab.
bool isTabStop(const QWidget* widget);

/// `part` and all widgets in it, in reading order: those in a layout in the layout's order, then those placed
/// freely, from top to bottom and from left to right.
std::vector<QWidget*> readingOrder(QWidget& part);

/// The tab stops in that order.
std::vector<QWidget*> tabStops(QWidget& part);

/// The nearest stop after or before `control` in `order`; null if there is none. Without a control, the first
/// stop or the last one.
QWidget* nextStop(const std::vector<QWidget*>& order, const QWidget* control);
QWidget* previousStop(const std::vector<QWidget*>& order, const QWidget* control);

/// Whether `widget` may get the focus that another control has lost. Not a button that undoes what has just
/// been done: a key meant for the previous control would press it.
bool canTakeFocusOver(const QWidget* widget);

/// Makes `canTakeFocusOver` false for `control`; returns `control`.
QWidget* excludeFromFocusHandover(QWidget* control);

/// The widget that takes the keyboard focus for `widget`: the editor in a panel, or `widget` itself.
QWidget* focusTarget(QWidget* widget);

/// The control that gets the focus in a new screen: the first text input, else the primary action, else the
/// first tab stop; null if there is none.
QWidget* firstControl(QWidget& screen);

/// Marks `control` as a primary action of its tool.
void markPrimaryAction(QWidget* control);

/// The first visible primary action of a screen, which may be disabled; null if there is none.
QWidget* firstAction(QWidget& screen);

/// Excludes `control` from the text inputs that a new screen focuses, for a text that the tool does not work
/// on.
void excludeFromInitialFocus(QWidget* control);

} // namespace korvane
