#include "Utilities/Markdown/MarkdownParser.h"

#include "MarkdownSample.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane::bench {
namespace {

constexpr std::size_t megabyte = 1'000'000;

void convert(benchmark::State& state, const std::string& markdown) {
    for (auto _ : state)
        benchmark::DoNotOptimize(MarkdownParser::toHTML(markdown));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(markdown.size()));
}

void ordinary(benchmark::State& state) {
    convert(state, ordinaryMarkdown(megabyte));
}

/// Repetitions of these take quadratic time in a matcher that rescans from every start.
constexpr std::string_view hostilePieces[] = {"![", "*",     "_", "`",   "~~",  "[",
                                              "- ", "- a\n", "a", "**a", "[a]("};

void hostile(benchmark::State& state) {
    const auto piece = hostilePieces[static_cast<std::size_t>(state.range(0))];
    std::string markdown;
    while (markdown.size() < megabyte)
        markdown += piece;
    state.SetLabel(std::string(piece.substr(0, piece.find('\n'))));
    convert(state, markdown);
}

BENCHMARK(ordinary)->Name("MarkdownParser::toHTML")->Unit(benchmark::kMillisecond);
BENCHMARK(hostile)
    ->Name("MarkdownParser::toHTML of one piece only")
    ->DenseRange(0, std::size(hostilePieces) - 1)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
