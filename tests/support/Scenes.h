/// The scenes in the pictures of the screens, by tool.
#pragma once

#include "Models/Tool.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A picture, and the user's actions before it is taken.
struct Scene {
    std::string name;
    std::optional<Tool> tool; ///< none: the welcome view
    std::function<void(const ScreenDriver&, FakeServices&)> play = [](const ScreenDriver&, FakeServices&) {};
};

/// Prints the name, for the message of a failing test.
void PrintTo(const Scene& scene, std::ostream* out);

std::vector<Scene> formatterScenes();
std::vector<Scene> converterScenes();
std::vector<Scene> crowdedScenes(); ///< more than there is room for
std::vector<Scene> generatorScenes();
std::vector<Scene> imageScenes();
std::vector<Scene> textScenes();

/// All of them but the crowded.
std::vector<Scene> allScenes();

/// Presses Paste with `text` on the clipboard.
void paste(const ScreenDriver& screen, FakeServices& fakes, std::string_view text);

} // namespace korvane
