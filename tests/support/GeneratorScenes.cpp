#include "support/Scenes.h"

#include <chrono>

namespace korvane {

std::vector<Scene> generatorScenes() {
    return {
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
    };
}

} // namespace korvane
