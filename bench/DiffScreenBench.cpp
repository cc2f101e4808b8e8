/// Response times of the Text Diff screen with 200,000 lines a side: from the button press until the result
/// is painted, and for each scroll step.

#include "Desktop/Lists/RowList.h"
#include "Desktop/Tools/Screens.h"
#include "DiffTexts.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>

namespace korvane::bench {
namespace {

DiffEngine::DiffTexts largeTexts() {
    for (const auto& kind : diffTexts) {
        if (kind.name == "hundredth-new")
            return kind.generate();
    }
    throw std::logic_error("unknown kind of texts");
}

struct DiffScreen {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{textDiffScreen(fakes.services)};
    ScreenDriver screen{*widget};

    DiffScreen() {
        auto texts = largeTexts();
        fakes.clipboard.content = std::move(texts.left);
        screen.press("Paste Original Text");
        fakes.clipboard.content = std::move(texts.right);
        screen.press("Paste Modified Text");
        screen.press("Compare");
    }
};

void compareAndShow(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto subject = std::make_unique<DiffScreen>();
        state.ResumeTiming();
        subject->fakes.background.runAll();
        subject->widget->grab();
        state.PauseTiming();
        subject.reset();
        state.ResumeTiming();
    }
}

void scrollTheLines(benchmark::State& state) {
    DiffScreen subject;
    subject.fakes.background.runAll();
    auto& list = subject.screen.list("Original");
    auto* bar = list.verticalScrollBar();
    const auto step = bar->maximum() / 997; // a large step, so that no painted rows are reused
    for (auto _ : state) {
        bar->setValue((bar->value() + step) % (bar->maximum() + 1));
        list.grab();
    }
}

void selectAndCopyAll(benchmark::State& state) {
    DiffScreen subject;
    subject.fakes.background.runAll();
    auto& list = subject.screen.list("Original");
    for (auto _ : state) {
        list.selectAll();
        list.grab();
        list.copy();
    }
}

BENCHMARK(compareAndShow)->Name("compareAndShowLines")->Unit(benchmark::kMillisecond);
BENCHMARK(scrollTheLines)->Unit(benchmark::kMillisecond);
BENCHMARK(selectAndCopyAll)->Name("selectAndCopyAllLines")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
