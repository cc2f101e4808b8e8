/// Response times of the hash screen with a large text: for each key press, and then for the digests. Runs
/// without a display.

#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "MixedDocument.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <QtTest/QTest>

#include <benchmark/benchmark.h>

#include <memory>

namespace korvane::bench {
namespace {

constexpr std::size_t textSize = 10'000'000;

struct HashScreen {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{hashGeneratorScreen(fakes.services)};
    ScreenDriver screen{*widget};

    HashScreen() {
        fakes.clipboard.content = mixedDocument(textSize);
        screen.press("Paste");
        fakes.background.runAll();
        screen.editor("Input Text").setFocus();
    }

    void typeALetter() const {
        auto& editor = screen.editor("Input Text");
        QTest::sendKeyEvent(QTest::Click, &editor, Qt::Key_X, QStringLiteral("x"), Qt::NoModifier);
        settle();
        editor.grab();
    }
};

void typeIntoAHashedText(benchmark::State& state) {
    HashScreen subject;
    for (auto _ : state) {
        subject.typeALetter();
        state.PauseTiming();
        subject.fakes.background.runAll();
        state.ResumeTiming();
    }
}

void hashInTheBackground(benchmark::State& state) {
    HashScreen subject;
    for (auto _ : state) {
        state.PauseTiming();
        subject.typeALetter();
        state.ResumeTiming();
        subject.fakes.background.runAll();
    }
}

BENCHMARK(typeIntoAHashedText)->Unit(benchmark::kMillisecond);
BENCHMARK(hashInTheBackground)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
