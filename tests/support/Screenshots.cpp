/// Draws the screens into picture files, with something to see in each: korvane_screenshots FOLDER. It shows
/// the real window, without a display.

#include "Desktop/Kit/Theme.h"
#include "Desktop/Window/MainWindow.h"
#include "support/FakeServices.h"
#include "support/Gallery.h"
#include "support/Scenes.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QDir>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace korvane {
namespace {

std::vector<Scene> scenes() {
    auto all = allScenes();
    all.push_back({"welcome", std::nullopt});
    return all;
}

bool draw(const Scene& scene, Theme::Scheme scheme, QSize size, const QString& file) {
    FakeServices fakes;
    fakes.clock.moment = std::chrono::system_clock::time_point(std::chrono::seconds(1763735400));
    MainWindow window(fakes.services);
    window.showScheme(scheme);
    window.view().perform([&](ContentView& state) { state.selectedTool = scene.tool; });
    const ScreenDriver screen(window, size);
    window.activateWindow();
    settle();
    scene.play(screen, fakes);
    settle();
    return window.grab().save(file);
}

/// The controls by themselves, on the window's background.
bool drawGallery(Theme::Scheme scheme, const QString& file) {
    Theme::setScheme(scheme);
    FakeServices fakes;
    const auto controls = gallery(fakes.services);
    controls->setPalette(Theme::palette());
    const ScreenDriver screen(*controls, {820, 1500});
    return controls->grab().save(file);
}

int drawAll(const QDir& folder) {
    for (const auto& scene : scenes()) {
        for (const auto scheme : {Theme::Scheme::light, Theme::Scheme::dark}) {
            for (const auto& [size, suffix] :
                 {std::pair(QSize(1100, 750), ""), std::pair(QSize(900, 600), "-900x600")}) {
                const auto name = QString::fromStdString(scene.name) +
                                  (scheme == Theme::Scheme::light ? "-light" : "-dark") + suffix + ".png";
                if (!draw(scene, scheme, size, folder.filePath(name))) {
                    std::fprintf(stderr, "%s cannot be written\n", qPrintable(folder.filePath(name)));
                    return 1;
                }
            }
        }
    }
    const bool drawn = drawGallery(Theme::Scheme::light, folder.filePath("controls-light.png")) &&
                       drawGallery(Theme::Scheme::dark, folder.filePath("controls-dark.png"));
    return drawn ? 0 : 1;
}

} // namespace
} // namespace korvane

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(korvane::Theme::style());
    if (argc != 2 || !QDir().mkpath(argv[1])) {
        std::fprintf(stderr, "usage: korvane_screenshots FOLDER\n");
        return 2;
    }
    return korvane::drawAll(QDir(argv[1]));
}
