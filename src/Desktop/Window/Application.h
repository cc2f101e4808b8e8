/// What the program is to the desktop, apart from its window: its names, its icon, its style, what
/// assistive technology sees of its controls, and that it leaves nothing behind.
#pragma once

#include <memory>

class QApplication;

namespace korvane {

/// The application object, set up. File panels are the desktop's: where its platform theme for Qt is missing,
/// the desktop portal shows them.
std::unique_ptr<QApplication> makeApplication(int& argc, char** argv);

/// Sets up an application object that exists already. There must be no window yet.
void setUpApplication();

} // namespace korvane
