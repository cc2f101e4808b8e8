/// The menus File, Edit and Help.
#pragma once

class QMenuBar;
class QWidget;

namespace korvane {

/// Opens the context menu of `control`, if it has one, as the menu key does.
void openContextMenu(QWidget* control);

struct Services;

/// The menu bar of `window`. The tools' items show their shortcuts but do not handle them.
QMenuBar* menuBar(QWidget* window, Services& services);

/// Opens the first menu of `bar` and selects its first enabled item, for use by keyboard.
void openFirstMenu(QMenuBar* bar);

} // namespace korvane
