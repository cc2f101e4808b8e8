/// Draws scenes of the real window into picture files, without a display:
///
///     korvane_screenshots FOLDER                         the first scene of each tool, for the gallery
///     korvane_screenshots FOLDER WIDTH HEIGHT [POINTS]   all scenes, also the crowded, and the controls;
///                                                        POINTS is the size of the body text

#include "Desktop/Look/Theme.h"
#include "Desktop/Window/MainWindow.h"
#include "support/FakeServices.h"
#include "support/Gallery.h"
#include "support/Scenes.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QDir>
#include <QProxyStyle>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace korvane {
namespace {

/// Qt's quality for the smallest PNG file, which is lossless.
constexpr int smallestFile = 0;

/// The style of the program, without animations.
class StillStyle final : public QProxyStyle {
public:
    StillStyle() : QProxyStyle(Theme::style()) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

std::vector<Scene> scenes() {
    auto all = allScenes();
    const auto crowded = crowdedScenes();
    all.insert(all.end(), crowded.begin(), crowded.end());
    all.push_back({"welcome", std::nullopt});
    return all;
}

/// One scene for each tool that has one, in the order of the catalogue.
std::vector<Scene> galleryScenes() {
    const auto all = allScenes();
    std::vector<Scene> gallery;
    for (const auto tool : allCases<Tool>) {
        if (const auto scene = std::ranges::find(all, std::optional(tool), &Scene::tool); scene != all.end())
            gallery.push_back(*scene);
    }
    return gallery;
}

bool draw(const Scene& scene, Theme::Scheme scheme, QSize size, const QString& file) {
    FakeServices fakes;
    fakes.clock.moment = std::chrono::system_clock::time_point(std::chrono::seconds(1763735400));
    MainWindow window(fakes.services);
    window.showScheme(scheme);
    window.store().perform([&](ContentView& state) { state.selectedTool = scene.tool; });
    const ScreenDriver screen(window, size);
    window.activateWindow();
    settle();
    scene.play(screen, fakes);
    settle();
    return window.grab().save(file, "PNG", smallestFile);
}

/// The controls by themselves, on the window's background.
bool drawControls(Theme::Scheme scheme, const QString& file) {
    Theme::setScheme(scheme);
    FakeServices fakes;
    const auto controls = gallery(fakes.services);
    controls->setPalette(Theme::palette());
    const ScreenDriver screen(*controls, {820, 1500});
    return controls->grab().save(file, "PNG", smallestFile);
}

QString fileName(const std::string& scene, Theme::Scheme scheme) {
    return QString::fromStdString(scene) + (scheme == Theme::Scheme::light ? "-light.png" : "-dark.png");
}

/// Returns the status for the process.
int drawAll(const QDir& folder, const std::vector<Scene>& scenes, QSize size, bool withControls) {
    bool drawn = true;
    for (const auto scheme : {Theme::Scheme::light, Theme::Scheme::dark}) {
        for (const auto& scene : scenes)
            drawn = draw(scene, scheme, size, folder.filePath(fileName(scene.name, scheme))) && drawn;
        if (withControls)
            drawn = drawControls(scheme, folder.filePath(fileName("controls", scheme))) && drawn;
    }
    if (!drawn)
        std::fprintf(stderr, "%s cannot be written to\n", qPrintable(folder.path()));
    return drawn ? 0 : 1;
}

} // namespace

/// Returns the status for the process.
static int drawAsAsked(const QStringList& arguments) {
    const bool isForGallery = arguments.size() == 2;
    if ((!isForGallery && arguments.size() != 4 && arguments.size() != 5) || !QDir().mkpath(arguments[1])) {
        std::fprintf(stderr, "usage: korvane_screenshots FOLDER [WIDTH HEIGHT [POINTS]]\n");
        return 2;
    }
    QApplication::setFont(Theme::applicationFont());
    QApplication::setStyle(new StillStyle);
    QApplication::setCursorFlashTime(0); // the caret is always drawn
    if (arguments.size() == 5) {
        auto font = QApplication::font();
        font.setPointSizeF(arguments[4].toDouble());
        QApplication::setFont(font);
    }
    const QDir folder(arguments[1]);
    if (isForGallery)
        return drawAll(folder, galleryScenes(), {1100, 750}, false);
    return drawAll(folder, scenes(), {arguments[2].toInt(), arguments[3].toInt()}, true);
}

} // namespace korvane

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return korvane::drawAsAsked(QApplication::arguments());
}
