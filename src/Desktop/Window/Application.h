/// The set-up of the application object: names, icon, style, accessibility, and dialogs that save no
/// settings. Not the window.
#pragma once

#include <memory>

class QApplication;

namespace korvane {

/// A new application object, set up. File panels are the desktop's own; where its platform theme for Qt is
/// missing, the desktop portal shows them.
std::unique_ptr<QApplication> makeApplication(int& argc, char** argv);

/// Sets up an existing application object. There must be no window yet.
void setUpApplication();

} // namespace korvane
