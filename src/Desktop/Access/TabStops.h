/// The controls at which the Tab key stops, in the order in which one reads them. The toolkit's own order is
/// that in which controls were made, so that one that comes later is last wherever it stands.
#pragma once

#include <vector>

class QWidget;

namespace korvane {

/// Whether the Tab key stops at `widget` by now, which it does at controls that are shown and enabled.
bool isTabStop(const QWidget* widget);

/// `part` of a window and all that is in it, as one reads it: what is in a layout in the layout's order, and
/// what is placed freely behind that, from top to bottom and from left to right.
std::vector<QWidget*> readingOrder(QWidget& part);

/// The stops among these.
std::vector<QWidget*> tabStops(QWidget& part);

/// The stop nearest behind `control` in `order`, or before it; none if there is none up to that end. Without
/// a control, the first stop or the last one.
QWidget* nextStop(const std::vector<QWidget*>& order, const QWidget* control);
QWidget* previousStop(const std::vector<QWidget*>& order, const QWidget* control);

/// Whether `widget` may have the focus that another control has lost. A button that takes back what has just
/// been done may not: a key that was meant for the control before would press it.
bool isSuccessor(const QWidget* widget);

/// Makes `control` one that is no successor; returns it.
QWidget* neverSucceeding(QWidget* control);

/// The widget that takes the keyboard focus for `widget`: the editor in a panel, or `widget` itself.
QWidget* focusTarget(QWidget* widget);

/// The control that has the focus in a fresh screen: what the user types into, else the action that the tool
/// is there for, else the first one; none where there is no stop.
QWidget* firstControl(QWidget& screen);

/// Marks `control` as an action that a tool is there for.
void markPrimaryAction(QWidget* control);

/// Has no fresh screen begin with `control`, which takes text but not what its tool is about.
void neverBeginWith(QWidget* control);

} // namespace korvane
