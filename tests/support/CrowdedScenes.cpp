#include "support/Pictures.h"
#include "support/Scenes.h"

#include <QComboBox>
#include <QSlider>
#include <QSpinBox>

namespace korvane {

namespace {

/// A word longer than any line, a line of words, a joined emoji sequence, and Arabic and Hebrew.
constexpr std::string_view everything =
    "Donaudampfschifffahrtselektrizitätenhauptbetriebswerkbauunterbeamtengesellschaftsversammlungssaal\n"
    "The quick brown fox jumps over the lazy dog, again and again, until the line is longer than any window "
    "is "
    "wide and goes on behind its edge\n"
    "👩‍👩‍👧‍👦 🇳🇴 ⚓️ é ﷽ Z̸͙̈a̷l̶g̵o̸\n"
    "السلام عليكم ورحمة الله وبركاته\n"
    "שלום עולם, version 2.0";

std::string repeated(std::string_view text, int times, std::string_view between = "") {
    std::string all(text);
    for (int i = 1; i < times; ++i)
        all.append(between).append(text);
    return all;
}

std::string crowdedJSON() {
    std::string members;
    for (int i = 0; i < 60; ++i)
        members += R"("a rather long name of a member )" + std::to_string(i) +
                   R"(": ["شمس", {"👩‍👩‍👧‍👦": )" + repeated("1234567890", 12) +
                   R"(, "path": ")" + repeated("folder/", 30) + R"("}], )";
    return "{" + members + R"("end": null})";
}

std::string crowdedURL() {
    std::string address =
        "https://" + repeated("subdomain.", 12) + "example.com:65535/" + repeated("path/", 40) + "?";
    for (int i = 0; i < 40; ++i)
        address += "parameter" + std::to_string(i) + "=" + repeated("value", 1 + i) + "&";
    return address + "last=%D8%B4%D9%85%D8%B3#" + repeated("fragment", 20);
}

/// Fills a history.
void generateMany(const ScreenDriver& screen) {
    auto& count = screen.stepper("Count");
    count.setValue(count.maximum());
    screen.press("Generate " + std::to_string(count.maximum()));
}

void loadTallPicture(const ScreenDriver& screen, FakeServices& fakes) {
    fakes.files.contents["/picture"] =
        FakeImages::shared()->convert(support::photograph({30, 3000}), ImageFormat::tiff, 1).value().view();
    screen.press("Choose File");
    fakes.panels.choose("/picture");
    fakes.background.runAll();
    screen.picker("Format").setCurrentIndex(5);
    screen.press("Apply Transforms");
    fakes.background.runAll();
}

std::vector<Scene> crowdedTexts() {
    return {
        {"crowded-json", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, crowdedJSON());
             screen.press("Prettify");
         }},
        {"crowded-json-tree", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.press("Tree View");
             paste(screen, fakes, crowdedJSON());
         }},
        {"crowded-base64", Tool::base64,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, repeated(everything, 40, "\n"));
             screen.press("Encode");
         }},
        {"crowded-diff", Tool::textDiff,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             fakes.clipboard.content = repeated(everything, 300, "\n");
             screen.press("Paste Original Text");
             fakes.clipboard.content = repeated("a line of its own\n" + std::string(everything), 280, "\n");
             screen.press("Paste Modified Text");
             screen.press("Compare");
             fakes.background.runAll();
         }},
        {"crowded-transformer", Tool::textTransformer,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, everything);
             screen.press("Title Case");
         }},
        {"crowded-transformer-stats", Tool::textTransformer,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.choose("Statistics");
             paste(screen, fakes, repeated(everything, 3000, "\n"));
             fakes.background.runAll();
         }},
        {"crowded-markdown", Tool::markdownPreview,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.type("Markdown", "# " + repeated(everything, 4, "\n\n- ") + "\n\n```\n" +
                                         std::string(everything) + "\n```\n\n");
         }},
        {"crowded-regex", Tool::regexTester,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.type("Test String", repeated(everything, 10, "\n"));
             screen.press("Find & Replace");
             screen.enter("Pattern", R"((\w+)(\s?)(\S*))");
             screen.enter("Replacement Pattern", "$3 " + repeated("replacement ", 20) + "$1");
             fakes.background.runAll();
         }},
    };
}

/// Messages with details beside them.
std::vector<Scene> crowdedMessages() {
    return {
        {"crowded-json-duplicates", Tool::jsonFormatter,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             const auto name = repeated("a rather long name ", 4);
             paste(screen, fakes, R"([{")" + name + R"(":1,")" + name + R"(":2},{"b":1,"b":2}])");
             screen.press("Prettify");
         }},
        {"crowded-jwt-hint", Tool::jwtDecoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, "eyJhbGciOiJub25lIn0\n.eyJleHAiOjE3OTUyNTE2MDB9\n.c2ln");
             screen.press("Decode");
         }},
        {"crowded-url-error", Tool::urlEncoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.choose("Analyze URL");
             paste(screen, fakes, crowdedURL() + "%");
             screen.press("Analyze URL");
         }},
        {"crowded-url-names", Tool::urlEncoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.choose("Analyze URL");
             paste(screen, fakes,
                   "https://example.com/?response_type=code&code_challenge_method=S256&empty=&without&" +
                       repeated("long", 30) + "=" + repeated("value", 30) + "#");
             screen.press("Analyze URL");
         }},
        {"crowded-regex-stopped", Tool::regexTester,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.type("Test String", repeated("a", 60) + "b");
             screen.enter("Pattern", "(a+)+$");
             fakes.background.runAll();
         }},
    };
}

std::vector<Scene> crowdedValues() {
    return {
        {"crowded-url", Tool::urlEncoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, repeated(everything, 20, "\n"));
             screen.press("Encode");
         }},
        {"crowded-url-analyze", Tool::urlEncoder,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             screen.choose("Analyze URL");
             paste(screen, fakes, crowdedURL());
             screen.press("Analyze URL");
         }},
        {"crowded-hash", Tool::hashGenerator,
         [](const ScreenDriver& screen, FakeServices& fakes) {
             paste(screen, fakes, repeated(everything, 20, "\n"));
         }},
        {"crowded-numberbase", Tool::numberBase,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.choose("Hexadecimal");
             screen.enter("Input", "7FFFFFFFFFFFFFFF");
         }},
        {"crowded-timestamp", Tool::timestamp,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.enter("Timestamp", "253402300799");
             screen.press("Convert to Date");
         }},
        {"crowded-uuid", Tool::uuidGenerator,
         [](const ScreenDriver& screen, FakeServices&) {
             for (int i = 0; i < 4; ++i)
                 generateMany(screen);
         }},
        {"crowded-lorem", Tool::loremIpsum,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.stepper("Count").setValue(screen.stepper("Count").maximum());
             screen.press("Generate");
         }},
        {"crowded-password", Tool::passwordGenerator,
         [](const ScreenDriver& screen, FakeServices&) {
             screen.slider("Password Length").setValue(screen.slider("Password Length").maximum());
             for (int i = 0; i < 6; ++i)
                 generateMany(screen);
         }},
        {"crowded-image", Tool::imageConverter, loadTallPicture},
    };
}

} // namespace

std::vector<Scene> crowdedScenes() {
    auto all = crowdedTexts();
    for (const auto& more : {crowdedMessages(), crowdedValues()})
        all.insert(all.end(), more.begin(), more.end());
    return all;
}

} // namespace korvane
