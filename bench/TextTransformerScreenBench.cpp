/// Response times of the text transformer with a large text: from each key press until the statistics are
/// updated. Runs without a display.

#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "MixedDocument.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <QtTest/QTest>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <string_view>

namespace korvane::bench {
namespace {

constexpr std::size_t textSize = 1'000'000;

std::string oneLine() {
    std::string text;
    while (text.size() < textSize)
        text += "key=value;";
    return text;
}

void typeInto(benchmark::State& state, std::string_view mode, std::string (*makeText)()) {
    FakeServices fakes;
    const std::unique_ptr<QWidget> widget(textTransformerScreen(fakes.services));
    const ScreenDriver screen(*widget);
    fakes.clipboard.content = makeText();
    screen.press("Paste");
    fakes.background.runAll();
    screen.press("UPPERCASE");
    fakes.background.runAll();
    screen.choose(mode);
    auto& editor = screen.editor(mode == "Line Operations" ? "Input Lines" : "Input Text");
    QTest::keyClick(&editor, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_Right, Qt::ControlModifier);
    settle();
    for (auto _ : state) {
        QTest::keyClick(&editor, Qt::Key_X);
        settle();
    }
}

std::string records() {
    return mixedDocument(textSize);
}

BENCHMARK_CAPTURE(typeInto, case transforms, "Case Transform", records)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typeInto, line operations, "Line Operations", records)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typeInto, statistics, "Statistics", records)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typeInto, statistics of one line, "Statistics", oneLine)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
