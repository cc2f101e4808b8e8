/// Draws the screens into picture files, with something to see in each: korvane_screenshots FOLDER. It shows
/// the real window, without a display.

#include "Desktop/Kit/Theme.h"
#include "Desktop/Window/MainWindow.h"
#include "support/FakeServices.h"
#include "support/Gallery.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QDir>

#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

constexpr std::string_view document = R"({"name":"Aurora Station","active":true,"crew":12,
 "location":{"lat":69.6492,"lon":18.9553,"city":"Tromsø"},
 "modules":["habitat","lab","greenhouse"],
 "power":{"source":"solar","output_kw":42.5,"backup":null},
 "website":"https://example.org/aurora",
 "launched":"2024-11-03"})";

constexpr std::string_view letter = R"(Meet me at the old lighthouse at dusk.
Bring the maps, the lantern and a warm coat.

— Ingrid ⚓)";

/// What a person does before the picture is taken.
struct Scene {
    std::string name;
    std::optional<Tool> tool;
    std::function<void(const ScreenDriver&, FakeServices&)> play = [](const ScreenDriver&, FakeServices&) {};
};

void paste(const ScreenDriver& screen, FakeServices& fakes, std::string_view text) {
    fakes.clipboard.content = text;
    screen.press("Paste");
}

const std::vector<Scene>& scenes() {
    static const std::vector<Scene> all = {
        {"json", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, document);
             screen.press("Prettify");
         }},
        {"json-tree", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.press("Tree View");
             paste(screen, fakes, document);
         }},
        {"json-error", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, std::string(document).replace(document.find("12,"), 3, "12"));
             screen.press("Prettify");
         }},
        {"base64", Tool::base64,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, letter);
             screen.press("Encode");
         }},
        {"base64-error", Tool::base64,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.choose("Decode");
             paste(screen, fakes, letter);
             screen.press("Decode");
         }},
        {"uuid", Tool::uuidGenerator,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.press("Generate 5");
             fakes.clock.moment += std::chrono::minutes(1);
             for (int i = 0; i < 4; ++i)
                 screen.press("Generate New");
         }},
        {"uuid-empty", Tool::uuidGenerator,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.press("Uppercase");
             screen.press("Hyphens");
             screen.press("Clear");
         }},
        {"lorem", Tool::loremIpsum,
         [](const ScreenDriver& screen, FakeServices&) { screen.press("Generate"); }},
        {"lorem-empty", Tool::loremIpsum},
        {"password", Tool::passwordGenerator,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.press("Symbols (!@#$%...)");
             screen.press("Generate");
             screen.press("Uppercase (A-Z)");
             screen.press("Generate");
             screen.press("Lowercase (a-z)");
             screen.press("Generate");
             fakes.clock.moment += std::chrono::minutes(1);
             for (const auto* option : {"Symbols (!@#$%...)", "Uppercase (A-Z)", "Lowercase (a-z)"})
                 screen.press(option);
             screen.press("Generate 5");
             screen.press("Generate");
         }},
        {"password-empty", Tool::passwordGenerator,
         [](const ScreenDriver& screen, FakeServices&) {
             for (const auto* option :
                  {"Symbols (!@#$%...)", "Uppercase (A-Z)", "Lowercase (a-z)", "Numbers (0-9)"})
                 screen.press(option);
             screen.press("Generate");
             screen.press("Clear");
         }},
        {"welcome", std::nullopt},
    };
    return all;
}

bool draw(const Scene& scene, Theme::Scheme scheme, QSize size, const QString& file) {
    FakeServices fakes;
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
