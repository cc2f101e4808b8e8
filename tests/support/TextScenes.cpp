#include "support/Scenes.h"

#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"

#include <QAbstractButton>

#include <chrono>

namespace korvane {

namespace {

constexpr std::string_view schedule = R"(# Harbour schedule
open: 06:00
close: 22:00
berths: 14
pilot: required
fuel: diesel
crane: 12 t
contact: harald@example.com
notes: call ahead in winter)";

constexpr std::string_view newSchedule = R"(# Harbour schedule
open: 05:30
close: 22:00
berths: 16
pilot: required
fuel: diesel
shore power: yes
contact: office@example.com
notes: call ahead in winter
weather: see board)";

void enterTexts(const ScreenDriver& screen, FakeServices& fakes, std::string_view left,
                std::string_view right) {
    fakes.clipboard.content = left;
    screen.press("Paste Original Text");
    fakes.clipboard.content = right;
    screen.press("Paste Modified Text");
}

std::vector<Scene> diffScenes() {
    return {
        {"diff-side", Tool::textDiff,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             enterTexts(screen, fakes, schedule, newSchedule);
             screen.press("Compare");
         }},
        {"diff", Tool::textDiff,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             enterTexts(screen, fakes, schedule, "");
             screen.editor("Original Text").setFocus();
         }},
        {"diff-unified", Tool::textDiff,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             enterTexts(screen, fakes, schedule, newSchedule);
             screen.press("Compare");
             screen.choose("Unified");
         }},
        {"diff-busy", Tool::textDiff,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             enterTexts(screen, fakes, std::string(100'000, '\n'), schedule);
             screen.press("Compare");
             fakes.timers.advance(std::chrono::seconds(1));
         }},
    };
}

constexpr std::string_view report = R"(The harbour lights come on at dusk.
Two boats wait outside the breakwater.
Nobody answers the radio.)";

constexpr std::string_view nuts = "walnut\nalmond\nhazelnut\npecan\ncashew\nalmond\npistachio";

std::vector<Scene> transformerScenes() {
    return {
        {"transformer", Tool::textTransformer,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, report);
             screen.press("snake_case");
             screen.editor("Input Text").setFocus();
         }},
        {"transformer-lines", Tool::textTransformer,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.choose("Line Operations");
             paste(screen, fakes, nuts);
             screen.press("Sort A-Z");
         }},
        {"transformer-stats", Tool::textTransformer,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.choose("Statistics");
             paste(screen, fakes, report);
         }},
        {"transformer-stats-empty", Tool::textTransformer,
         [](const ScreenDriver& screen, FakeServices&) { screen.choose("Statistics"); }},
    };
}

std::vector<Scene> markdownScenes() {
    return {
        {"markdown", Tool::markdownPreview},
        {"markdown-editor", Tool::markdownPreview,
         [](const ScreenDriver& screen, FakeServices&) { screen.choose("Editor"); }},
        {"markdown-preview", Tool::markdownPreview,
         [](const ScreenDriver& screen, FakeServices&) { screen.choose("Preview"); }},
        {"markdown-html", Tool::markdownPreview,
         [](const ScreenDriver& screen, FakeServices&) { screen.choose("HTML Output"); }},
    };
}

constexpr std::string_view addresses = R"(Write to ingrid@lighthouse.org or harald@example.com.
The old address, info@@harbour, no longer works.)";

void search(const ScreenDriver& screen, std::string_view pattern) {
    screen.type("Test String", addresses);
    screen.enter("Pattern", pattern);
}

std::vector<Scene> regexScenes() {
    return {
        {"regex", Tool::regexTester,
         [](const ScreenDriver& screen, FakeServices&) { search(screen, R"((\w+)@([a-z]+)\.(org|com))"); }},
        {"regex-marks", Tool::regexTester,
         [](const ScreenDriver& screen, FakeServices&) {
             search(screen, R"((\w+)@([a-z]+)\.(org|com))");
             screen.list("Matches").setCurrentRow(1); // the first row is the current one already
             screen.list("Matches").setCurrentRow(0);
         }},
        {"regex-empty", Tool::regexTester,
         [](const ScreenDriver& screen, FakeServices&) { screen.press("Find & Replace"); }},
        {"regex-replace", Tool::regexTester,
         [](const ScreenDriver& screen, FakeServices&) {
             search(screen, R"((\w+)@([a-z]+)\.(org|com))");
             screen.press("Find & Replace");
             screen.enter("Replacement Pattern", "$2: $1");
         }},
        {"regex-error", Tool::regexTester,
         [](const ScreenDriver& screen, FakeServices&) { search(screen, R"((\w+@([a-z]+)"); }},
    };
}

} // namespace

std::vector<Scene> textScenes() {
    std::vector<Scene> all = diffScenes();
    for (const auto& scenes : {transformerScenes(), markdownScenes(), regexScenes()})
        all.insert(all.end(), scenes.begin(), scenes.end());
    return all;
}

} // namespace korvane
