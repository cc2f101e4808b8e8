/// What the detail shows while no tool is selected.
#pragma once

class QWidget;

namespace korvane {

QWidget* welcomeScreen();

} // namespace korvane
