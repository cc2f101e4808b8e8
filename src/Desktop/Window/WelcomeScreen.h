/// The detail while no tool is selected.
#pragma once

class QWidget;

namespace korvane {

QWidget* welcomeScreen();

} // namespace korvane
