#include "Desktop/Access/Editing.h"
#include "Desktop/Text/TextArea.h"
#include "Views/Components/AwaitedWork.h"
#include "support/Scenes.h"

#include <cstddef>
#include <string>
#include <string_view>

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

/// An array of at least that size in bytes, one object a line.
std::string stations(std::size_t size) {
    std::string text = "[\n";
    for (int number = 100'241; text.size() < size; number += 17)
        text += "{\"id\":" + std::to_string(number) +
                R"(,"name":"Aurora Station","crew":3,"lat":69.6492,"lon":18.9553},)" + "\n";
    return text + "{}\n]";
}

} // namespace

std::vector<Scene> formatterScenes() {
    return {
        {"json", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, document);
             screen.press("Prettify");
         }},
        {"find", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, document);
             screen.press("Prettify");
             auto& input = screen.editor("Input");
             input.select({20, 20});
             find(&input);
             screen.press("Regular expression");
             screen.enter("Find in Input", R"(\d[\d.]*)");
             fakes.background.runAll();
         }},
        {"find-none", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, document);
             screen.press("Prettify");
             find(&screen.editor("Input"));
             screen.enter("Find in Input", "harbour");
         }},
        {"busy", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, document);
             screen.press("Prettify");
             paste(screen, fakes, stations(48'000'000));
             screen.press("Prettify");
             fakes.timers.advance(AwaitedWork::busyDelay);
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
    };
}

} // namespace korvane
