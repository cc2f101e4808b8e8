#include "support/Scenes.h"

#include <QSlider>

namespace korvane {

std::vector<Scene> converterScenes() {
    return {
        {"numberbase", Tool::numberBase,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.choose("Hexadecimal");
             screen.press("Group Digits");
             screen.enter("Input", "FF0A3C5E");
         }},
        {"numberbase-empty", Tool::numberBase},
        {"numberbase-error", Tool::numberBase,
         [](const ScreenDriver& screen, FakeServices&) { screen.enter("Input", "0x1F"); }},
        {"timestamp", Tool::timestamp,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.enter("Timestamp", "1763735400");
             screen.press("Convert to Date");
         }},
        {"timestamp-error", Tool::timestamp,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.enter("Timestamp", "17637354oo");
             screen.press("Convert to Date");
         }},
        {"color-start", Tool::colorPicker},
        {"color", Tool::colorPicker,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.enter("HEX", "ff8000");
             screen.press("Apply");
             screen.slider("Opacity").setValue(screen.slider("Opacity").maximum() * 6 / 10);
         }},
    };
}

} // namespace korvane
