#include "Desktop/Window/Application.h"
#include "Desktop/Window/DesktopScheme.h"
#include "Desktop/Window/MainWindow.h"
#include "Desktop/Window/ServicesQt.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    korvane::setUpApplication();

    korvane::ServicesQt services;
    korvane::MainWindow window(services.services());
    const korvane::DesktopScheme desktop([&](korvane::Theme::Scheme scheme) { window.showScheme(scheme); });
    window.showScheme(desktop.scheme());
    window.show();
    return QApplication::exec();
}
