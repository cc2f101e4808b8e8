#include "Utilities/Text/Rope.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace korvane::bench {
namespace {

constexpr std::size_t textSize = 100'000'000;

std::string repeated(std::string_view piece) {
    std::string text;
    text.reserve(textSize);
    while (text.size() + piece.size() <= textSize)
        text += piece;
    return text;
}

std::string ascii() {
    return repeated("2024-03-07 12:00:00 INFO the quick brown fox jumps over the lazy dog\n");
}

std::string mixed() {
    return repeated(
        "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich. 😀 plain words, then more\n"
        "Съешь же ещё этих мягких французских булок. いろはにほへと ちりぬるを\n");
}

/// Lines with a byte that is not UTF-8 in each leaf.
std::string illFormed() {
    return repeated("Zwölf Boxk\xE4mpfer jagen Viktor quer über den großen Sylter Deich.\n");
}

void setBytes(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(textSize));
}

/// From a string that is handed over.
void construct(benchmark::State& state, std::string (*make)()) {
    const auto text = make();
    for (auto _ : state) {
        state.PauseTiming();
        auto copy = text;
        std::optional<Rope> rope;
        state.ResumeTiming();
        rope.emplace(std::move(copy));
        benchmark::DoNotOptimize(rope);
        state.PauseTiming();
        rope.reset();
        state.ResumeTiming();
    }
    setBytes(state);
}

void destroy(benchmark::State& state) {
    const auto text = ascii();
    for (auto _ : state) {
        state.PauseTiming();
        std::optional<Rope> rope(std::in_place, text);
        state.ResumeTiming();
        rope.reset();
    }
}

/// A rope that is in a buffer for each of its leaves, as after many edits.
Rope scattered() {
    const auto text = ascii();
    constexpr std::size_t step = 3'000;
    Rope rope;
    for (std::size_t offset = 0; offset < text.size(); offset += step)
        rope += std::string_view(text).substr(offset, step);
    return rope;
}

void insertOneCharacter(benchmark::State& state, std::string (*make)()) {
    const Rope rope(make());
    const Rope key("x");
    const auto middle = rope.size() / 2;
    for (auto _ : state)
        benchmark::DoNotOptimize(rope.replacing(middle, middle, key));
}

/// A run of keys, each in the version that the one before it made.
void typeInTheMiddle(benchmark::State& state) {
    const Rope original(ascii());
    const Rope key("x");
    auto rope = original;
    std::size_t typed = 0;
    for (auto _ : state) {
        const auto caret = original.size() / 2 + typed;
        rope = rope.replacing(caret, caret, key);
        ++typed;
    }
}

void compareVersions(benchmark::State& state) {
    const Rope rope(ascii());
    const auto middle = rope.size() / 2;
    const auto left = rope.replacing(middle, middle + 1, "x");
    const auto right = rope.replacing(middle, middle + 1, "x");
    for (auto _ : state)
        benchmark::DoNotOptimize(left == right);
}

void compareUnshared(benchmark::State& state) {
    const Rope left(ascii());
    const Rope right(ascii());
    for (auto _ : state)
        benchmark::DoNotOptimize(left == right);
    setBytes(state);
}

void walkChunks(benchmark::State& state) {
    const auto rope = scattered();
    for (auto _ : state) {
        std::size_t sum = 0;
        for (const auto chunk : rope.chunks())
            sum += static_cast<unsigned char>(chunk.front());
        benchmark::DoNotOptimize(sum);
    }
    setBytes(state);
}

void copyFlat(benchmark::State& state, Rope (*make)()) {
    const auto rope = make();
    for (auto _ : state)
        benchmark::DoNotOptimize(rope.string());
    setBytes(state);
}

void seekRow(benchmark::State& state, std::string (*make)()) {
    const Rope rope(make());
    const auto rows = [](const TextSummary& before) { return before.newlines + before.utf16Units / 80; };
    const auto last = rows(rope.summary());
    std::size_t row = 0;
    for (auto _ : state) {
        row = (row + 1'000'003) % last;
        benchmark::DoNotOptimize(rope.seek(rows, row));
    }
}

void findUTF16Offset(benchmark::State& state, std::string (*make)()) {
    const Rope rope(make());
    std::size_t offset = 0;
    for (auto _ : state) {
        offset = (offset + 10'000'019) % rope.size();
        benchmark::DoNotOptimize(rope.utf16Offset(offset));
    }
}

BENCHMARK_CAPTURE(construct, ascii, ascii)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(construct, mixed, mixed)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(construct, ill_formed, illFormed)->Unit(benchmark::kMillisecond);
BENCHMARK(destroy)->Name("destroyRope")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(insertOneCharacter, ascii, ascii)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(insertOneCharacter, mixed, mixed)->Unit(benchmark::kMicrosecond);
BENCHMARK(typeInTheMiddle)->Unit(benchmark::kMicrosecond);
BENCHMARK(compareVersions)->Unit(benchmark::kMicrosecond);
BENCHMARK(compareUnshared)->Unit(benchmark::kMillisecond);
BENCHMARK(walkChunks)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(copyFlat, one_run, +[] { return Rope(ascii()); })->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(copyFlat, scattered, scattered)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(seekRow, ascii, ascii)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(seekRow, mixed, mixed)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(findUTF16Offset, ascii, ascii)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(findUTF16Offset, mixed, mixed)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace korvane::bench
