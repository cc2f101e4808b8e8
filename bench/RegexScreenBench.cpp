/// Response times of the Regex Tester with a million matches. The search runs in the background, so typing
/// and scrolling measure only the work that blocks the window.

#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Regex/MatchList.h"
#include "Desktop/Tools/Screens.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <memory>

namespace korvane::bench {
namespace {

struct MatchScreen {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{regexTesterScreen(fakes.services)};
    ScreenDriver screen{*widget};

    MatchScreen() {
        QGuiApplication::clipboard()->setText(QString(1'000'000, 'a'));
        screen.editor("Test String").paste();
    }

    RowList* list() const {
        for (auto* child : widget->findChildren<QWidget*>()) {
            if (auto* list = dynamic_cast<RowList*>(child))
                return list;
        }
        return nullptr;
    }
};

/// A key press in the pattern field, which starts a search.
void typeThePattern(benchmark::State& state) {
    MatchScreen subject;
    bool isOther = false;
    for (auto _ : state) {
        subject.screen.enter("Pattern", isOther ? "b" : "c");
        isOther = !isOther;
        subject.widget->grab();
    }
}

/// The search and the list of a million matches together.
void listAMillionMatches(benchmark::State& state) {
    MatchScreen subject;
    for (auto _ : state) {
        subject.screen.enter("Pattern", "(a)");
        subject.fakes.background.runAll();
        subject.widget->grab();
        state.PauseTiming();
        subject.screen.enter("Pattern", "");
        state.ResumeTiming();
    }
}

void scrollTheMatches(benchmark::State& state) {
    MatchScreen subject;
    subject.screen.enter("Pattern", "(a)");
    subject.fakes.background.runAll();
    auto* bar = subject.list()->verticalScrollBar();
    const auto step = bar->maximum() / 997;
    for (auto _ : state) {
        bar->setValue((bar->value() + step) % (bar->maximum() + 1));
        subject.list()->grab();
    }
}

BENCHMARK(typeThePattern)->Unit(benchmark::kMillisecond);
BENCHMARK(listAMillionMatches)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollTheMatches)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
