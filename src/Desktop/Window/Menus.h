/// The menus File, Edit and Help, built from the catalogue and from tables.
#pragma once

class QMenuBar;
class QWidget;

namespace korvane {

/// Opens the menu of `control`, if it has one, as the menu key does.
void openContextMenu(QWidget* control);

struct Services;

/// The menu bar of `window`. The items of the tools show their shortcuts but do not answer to them.
QMenuBar* menuBar(QWidget* window, Services& services);

/// Opens the first menu of `bar`, to go on in by keyboard.
void openFirstMenu(QMenuBar* bar);

} // namespace korvane
