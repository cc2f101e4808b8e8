#include "Views/Components/AwaitedWork.h"
#include "support/Scenes.h"

#include "Views/Tools/HashGeneratorView.h"

#include <QSlider>

#include <string>

namespace korvane {

namespace {

constexpr std::string_view query = R"(https://shop.example.com/search?q=café & crème&sort=price
name=Zoë Müller&city=São Paulo)";

constexpr std::string_view url =
    "https://api.example.com:8080/v2/stations/aurora?unit=metric&fields=wind,temp&verbose#daily";

constexpr std::string_view token =
    "eyJhbGciOiJIUzI1NiIsInR5cCI6IkpXVCIsImtpZCI6IjIwMjUtMTEifQ."
    "eyJzdWIiOiJ1c2VyLTQ4MjEiLCJuYW1lIjoiSW5ncmlkIERhaGwiLCJyb2xlIjoia2VlcGVyIiwic2NvcGUiOlsicmVhZCIsIndyaXRl"
    "Il0sImlhdCI6MTc2MzcxNTYwMCwiZXhwIjoxNzk1MjUxNjAwfQ.yPeNYRG530SOKQcadW3bd7f8vSwRmXXUuQVu76TfVtw";

constexpr std::string_view pangrams = R"(The quick brown fox jumps over the lazy dog.
Der schnelle braune Fuchs springt über den faulen Hund.)";

} // namespace

std::vector<Scene> converterScenes() {
    return {
        {"url", Tool::urlEncoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, query);
             screen.press("Encode");
         }},
        {"url-analyze", Tool::urlEncoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.choose("Analyze URL");
             paste(screen, fakes, url);
             screen.press("Analyze URL");
         }},
        {"jwt", Tool::jwtDecoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, token);
             screen.press("Decode");
         }},
        {"jwt-error", Tool::jwtDecoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, token.substr(0, token.rfind('.')));
             screen.press("Decode");
         }},
        {"jwt-unreadable", Tool::jwtDecoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, "a.b.c");
             screen.press("Decode");
         }},
        {"hash", Tool::hashGenerator,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, pangrams);
             screen.press("SHA256");
             screen.press("Copy MD5");
         }},
        {"hash-busy", Tool::hashGenerator,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             std::string large;
             while (large.size() <= maxImmediateSize)
                 large.append(pangrams).append("\n");
             paste(screen, fakes, large);
             fakes.timers.advance(AwaitedWork::busyDelay);
             screen.press("SHA256");
         }},
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
        {"timestamp-microseconds", Tool::timestamp,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.enter("Timestamp", "1763735400000000");
             screen.press("Convert to Date");
         }},
        {"color", Tool::colorPicker,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.enter("HEX Input", "ff8000");
             screen.press("Apply");
             screen.slider("Opacity").setValue(screen.slider("Opacity").maximum() * 6 / 10);
         }},
        {"color-start", Tool::colorPicker},
    };
}

} // namespace korvane
