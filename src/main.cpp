#include "Desktop/Kit/Accessibility.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Window/DesktopScheme.h"
#include "Desktop/Window/MainWindow.h"
#include "Desktop/Window/ServicesQt.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("korvane"));
    QApplication::setApplicationDisplayName(QStringLiteral("Korvane"));
    QApplication::setDesktopFileName(QStringLiteral("org.korvane.Korvane"));
    QApplication::setStyle(korvane::Theme::style());
    korvane::installAccessibility();

    korvane::ServicesQt services;
    korvane::MainWindow window(services.services());
    const korvane::DesktopScheme desktop([&](korvane::Theme::Scheme scheme) { window.showScheme(scheme); });
    window.showScheme(desktop.scheme());
    window.show();
    return QApplication::exec();
}
