/// Response times of the JSON screen with a large document: from pasting until the tree is painted, and for
/// each scroll step. Runs without a display.

#include "Desktop/Lists/RowList.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Screens.h"
#include "MixedDocument.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <memory>

namespace korvane::bench {
namespace {

constexpr std::size_t documentSize = 13'000'000;

struct TreeScreen {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{jsonFormatterScreen(fakes.services)};
    ScreenDriver screen{*widget};

    explicit TreeScreen(const std::string& document) {
        screen.press("Tree View");
        fakes.clipboard.content = document;
    }

    void paste() {
        screen.press("Paste");
        fakes.background.runAll();
        widget->grab();
    }
};

void pasteInTreeMode(benchmark::State& state) {
    const auto document = mixedDocument(documentSize);
    for (auto _ : state) {
        state.PauseTiming();
        auto subject = std::make_unique<TreeScreen>(document);
        state.ResumeTiming();
        subject->paste();
        state.PauseTiming();
        subject.reset();
        state.ResumeTiming();
    }
}

void scrollTheTree(benchmark::State& state) {
    TreeScreen subject(mixedDocument(documentSize));
    subject.paste();
    auto& list = subject.screen.list("Tree View");
    auto* bar = list.verticalScrollBar();
    const auto step = bar->maximum() / 997; // a large step, so that no painted rows are reused
    for (auto _ : state) {
        bar->setValue((bar->value() + step) % (bar->maximum() + 1));
        list.grab();
    }
}

void foldTheRoot(benchmark::State& state) {
    TreeScreen subject(mixedDocument(documentSize));
    subject.paste();
    auto& list = subject.screen.list("Tree View");
    for (auto _ : state) {
        list.onActivate(0);
        subject.widget->grab();
    }
}

void scrollAlongOneValue(benchmark::State& state) {
    std::string document = "[\"";
    while (document.size() < 2'000'000)
        document += "長い値 and ASCII ";
    TreeScreen subject(document + "\"]");
    subject.paste();
    auto& list = subject.screen.list("Tree View");
    auto* bar = list.horizontalScrollBar();
    const auto step = bar->maximum() / 97;
    for (auto _ : state) {
        bar->setValue((bar->value() + step) % (bar->maximum() + 1));
        list.grab();
    }
}

BENCHMARK(pasteInTreeMode)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollTheTree)->Unit(benchmark::kMillisecond);
BENCHMARK(foldTheRoot)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollAlongOneValue)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(korvane::Theme::style());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
