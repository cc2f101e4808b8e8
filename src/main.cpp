#include "Desktop/Window/Application.h"
#include "Desktop/Window/DesktopScheme.h"
#include "Desktop/Window/MainWindow.h"
#include "Desktop/Window/ServicesQt.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    const auto application = korvane::makeApplication(argc, argv);

    korvane::ServicesQt services;
    korvane::MainWindow window(services.services());
    const korvane::DesktopScheme desktop([&](korvane::Theme::Scheme scheme) { window.showScheme(scheme); });
    window.showScheme(desktop.scheme());
    window.show();
    return QApplication::exec();
}
