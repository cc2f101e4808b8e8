#include "support/Scenes.h"

#include <ostream>

namespace korvane {

void PrintTo(const Scene& scene, std::ostream* out) {
    *out << scene.name;
}

std::vector<Scene> allScenes() {
    std::vector<Scene> all = formatterScenes();
    for (const auto& scenes : {converterScenes(), generatorScenes(), imageScenes(), textScenes()})
        all.insert(all.end(), scenes.begin(), scenes.end());
    return all;
}

void paste(const ScreenDriver& screen, FakeServices& fakes, std::string_view text) {
    fakes.clipboard.content = text;
    screen.press("Paste");
}

} // namespace korvane
