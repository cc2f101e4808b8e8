#include "Desktop/Window/Application.h"
#include "Desktop/Window/DesktopScheme.h"
#include "Desktop/Window/MainWindow.h"
#include "Desktop/Window/ServicesQt.h"
#include "Utilities/ClosedNetwork.h"
#include "Utilities/LinkOpener.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    const korvane::LinkOpener opener; // before there are threads, and outside of the closed network
    const auto application = korvane::makeApplication(argc, argv);
    const auto closedNetwork = korvane::closeNetwork(); // the connection to the display is open

    korvane::ServicesQt services(opener);
    korvane::MainWindow window(services.services(), {.sidebar = {.closedNetwork = closedNetwork}});
    const korvane::DesktopScheme desktop([&](korvane::Theme::Scheme scheme) { window.showScheme(scheme); });
    window.showScheme(desktop.scheme());
    window.show();
    return QApplication::exec();
}
