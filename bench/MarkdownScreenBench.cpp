/// Response times of the Markdown screen with a large text and its preview: from typing a letter at several
/// positions until all of it is shown on both sides, and painted.

#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Markdown/MarkdownBrowser.h"
#include "Desktop/Tools/Screens.h"
#include "MarkdownSample.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <QScrollBar>
#include <QTextBrowser>
#include <QtTest/QTest>

#include <benchmark/benchmark.h>

#include <memory>

namespace korvane::bench {
namespace {

struct MarkdownScreen {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{markdownPreviewScreen(fakes.services)};
    ScreenDriver screen{*widget, {1100, 750}};
    TextArea& editor = screen.editor("Markdown");
    MarkdownBrowser& preview = *dynamic_cast<MarkdownBrowser*>(widget->findChild<QTextBrowser*>());

    void show(const std::string& markdown) {
        editor.selectAll();
        editor.onEdit(markdown);
        paint();
    }

    void paint() {
        do {
            fakes.background.runAll();
            settle();
        } while (!preview.isUpToDate());
        widget->grab();
    }

    /// Types `letter` at the position `part` (0 to 1) of the text's length.
    void type(char letter, double part) {
        const auto place = static_cast<std::size_t>(part * static_cast<double>(editor.text().size()));
        editor.select({place, place});
        QTest::keyClick(&editor, letter);
        paint();
    }
};

void type(benchmark::State& state, const std::string& markdown, double part) {
    MarkdownScreen subject;
    subject.show(markdown);
    for (auto _ : state)
        subject.type('x', part);
}

constexpr std::size_t documentSize = 200'000;

void typeAtTheStart(benchmark::State& state) {
    type(state, "A start\n\n" + ordinaryMarkdown(documentSize), 0);
}

void typeInTheMiddle(benchmark::State& state) {
    type(state, ordinaryMarkdown(documentSize), 0.5);
}

void typeInOneLongParagraph(benchmark::State& state) {
    std::string markdown;
    while (markdown.size() < documentSize)
        markdown += "one **long** paragraph ";
    type(state, markdown, 0.5);
}

/// A fence at the start turns the whole text into code and back.
void openAndCloseAFence(benchmark::State& state) {
    MarkdownScreen subject;
    const auto markdown = ordinaryMarkdown(documentSize);
    subject.show(markdown);
    bool isOpen = false;
    for (auto _ : state) {
        isOpen = !isOpen;
        subject.show((isOpen ? "```\n" : "") + markdown);
    }
}

void pasteAMegabyte(benchmark::State& state, std::string_view piece) {
    std::string markdown;
    while (markdown.size() < 1'000'000)
        markdown += piece;
    for (auto _ : state) {
        state.PauseTiming();
        auto subject = std::make_unique<MarkdownScreen>();
        state.ResumeTiming();
        subject->show(markdown);
        state.PauseTiming();
        subject.reset();
        state.ResumeTiming();
    }
}

void pasteAsterisks(benchmark::State& state) {
    pasteAMegabyte(state, "**");
}

void pasteItems(benchmark::State& state) {
    pasteAMegabyte(state, "- a\n");
}

BENCHMARK(typeAtTheStart)->Unit(benchmark::kMillisecond);
BENCHMARK(typeInTheMiddle)->Unit(benchmark::kMillisecond);
BENCHMARK(typeInOneLongParagraph)->Unit(benchmark::kMillisecond);
BENCHMARK(openAndCloseAFence)->Unit(benchmark::kMillisecond);
BENCHMARK(pasteAsterisks)->Unit(benchmark::kMillisecond);
BENCHMARK(pasteItems)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
