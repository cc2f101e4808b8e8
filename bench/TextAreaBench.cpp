/// Response times of the text area with 100 MB, as lines and as one line: each until it is painted.

#include "Desktop/Text/TextArea.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QtTest/QTest>

#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

namespace korvane::bench {
namespace {

constexpr std::size_t textSize = 100'000'000;

/// Words of a few letters, with a space or a line feed between every eighth and ninth.
const std::string& words(bool hasLines) {
    const auto make = [](char separator) {
        std::string text;
        text.reserve(textSize + 64);
        for (std::size_t number = 0; text.size() < textSize; ++number)
            text.append("word")
                .append(std::to_string(number % 10'000))
                .append(1, number % 8 == 7 ? separator : ' ');
        return text;
    };
    static const std::string lines = make('\n');
    static const std::string line = make(' ');
    return hasLines ? lines : line;
}

struct Subject {
    TextArea area{};

    Subject() {
        area.setStyle({.font = QFont(QStringLiteral("monospace")), .lineHeight = 21, .inset = {8, 8, 8, 8}});
        area.setLineNumbers(true);
        area.resize(800, 600);
        area.show();
    }

    void paint() {
        QCoreApplication::processEvents();
        area.grab();
    }
};

void copyAsAString(benchmark::State& state) {
    const auto& text = words(state.range(0) != 0);
    for (auto _ : state) {
        auto copy = text;
        benchmark::DoNotOptimize(copy);
    }
}

void setAText(benchmark::State& state) {
    const auto& text = words(state.range(0) != 0);
    for (auto _ : state) {
        state.PauseTiming();
        Subject subject;
        subject.paint();
        state.ResumeTiming();
        subject.area.setText(text);
        subject.paint();
        state.PauseTiming();
        subject.area.setText({});
        state.ResumeTiming();
    }
}

void typeALetter(benchmark::State& state) {
    Subject subject;
    subject.area.setText(words(state.range(0) != 0));
    const auto middle = subject.area.text().size() / 2;
    subject.area.select({middle, middle});
    subject.paint();
    for (auto _ : state) {
        QTest::sendKeyEvent(QTest::Click, &subject.area, Qt::Key_X, QStringLiteral("x"), Qt::NoModifier);
        subject.paint();
    }
}

/// The same with a million marks, which move with their text.
void typeALetterBeforeMarks(benchmark::State& state) {
    constexpr std::size_t markCount = 1'000'000;
    constexpr std::size_t distance = textSize / markCount;
    Subject subject;
    subject.area.setText(words(state.range(0) != 0));
    std::vector<TextMark> marks;
    for (std::size_t index = 1; index < markCount; ++index)
        marks.push_back({index * distance, index * distance + distance / 2});
    subject.area.setMarks(TextMarkLayer::content, TextMarks(std::move(marks)));
    subject.area.select({0, 0});
    subject.paint();
    for (auto _ : state) {
        QTest::sendKeyEvent(QTest::Click, &subject.area, Qt::Key_X, QStringLiteral("x"), Qt::NoModifier);
        subject.paint();
    }
}

void scrollByAPage(benchmark::State& state) {
    Subject subject;
    subject.area.setText(words(state.range(0) != 0));
    subject.area.select({0, 0});
    subject.paint();
    for (auto _ : state) {
        subject.area.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        subject.paint();
    }
}

void selectAllAndCopy(benchmark::State& state) {
    Subject subject;
    subject.area.setText(words(state.range(0) != 0));
    for (auto _ : state) {
        subject.area.selectAll();
        subject.area.copyText();
        benchmark::DoNotOptimize(QGuiApplication::clipboard()->text().size());
    }
}

void clearAText(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        Subject subject;
        subject.area.setText(words(state.range(0) != 0));
        subject.paint();
        state.ResumeTiming();
        subject.area.setText({});
        subject.paint();
    }
}

BENCHMARK(copyAsAString)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(setAText)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(typeALetter)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(typeALetterBeforeMarks)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollByAPage)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(selectAllAndCopy)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(clearAText)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
