/// Searching and replacing in generated text, and for comparison the same searches by ICU alone, in UTF-16
/// and in UTF-8.

#include "Utilities/RegularExpression.h"

#include <benchmark/benchmark.h>
#include <unicode/uregex.h>
#include <unicode/utext.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace korvane::bench {
namespace {

constexpr std::size_t textSize = 1 << 20;

struct Case {
    std::string_view pattern;
    std::string_view piece; ///< the repeated part of the text
};

constexpr auto cases = std::to_array<Case>({
    {R"(\w+)", "lorem ipsum dolor "},
    {R"((\w+)@([a-z]+)\.(org|com))", "Write to ingrid@lighthouse.org or harald. "},
    {"zz", "lorem ipsum dolor "},
    {R"(\w+)", "привет, мир 😀 "},
    {"(?<=o)r", "lorem ipsum dolor "},
    {"[a-z]", "a"}, // a million matches
});

std::shared_ptr<const std::string> textOf(const Case& row) {
    auto text = std::make_shared<std::string>();
    while (text->size() < textSize)
        *text += row.piece;
    return text;
}

void label(benchmark::State& state, const Case& row, std::size_t matches) {
    state.SetLabel(std::string(row.pattern) + ", " + std::to_string(matches) + " matches");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(textSize));
}

void search(benchmark::State& state) {
    const auto& row = cases.at(static_cast<std::size_t>(state.range(0)));
    const auto text = textOf(row);
    std::size_t matches = 0;
    for (auto _ : state)
        matches = RegularExpression::search(row.pattern, true, text, {})->matchCount();
    label(state, row, matches);
}

/// ICU alone, which only counts matches.
void findAll(benchmark::State& state, bool isUTF8) {
    const auto& row = cases.at(static_cast<std::size_t>(state.range(0)));
    const auto text = textOf(row);
    const auto pattern = icu::UnicodeString::fromUTF8(icu::StringPiece(row.pattern));
    std::size_t matches = 0;
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        const icu::LocalURegularExpressionPointer regex(
            uregex_open(pattern.getBuffer(), pattern.length(), 0, nullptr, &status));
        const auto units = isUTF8 ? icu::UnicodeString() : icu::UnicodeString::fromUTF8(*text);
        const icu::LocalUTextPointer bytes(
            utext_openUTF8(nullptr, text->data(), static_cast<std::int64_t>(text->size()), &status));
        if (isUTF8)
            uregex_setUText(regex.getAlias(), bytes.getAlias(), &status);
        else
            uregex_setText(regex.getAlias(), units.getBuffer(), units.length(), &status);
        matches = 0;
        while (uregex_findNext(regex.getAlias(), &status) != 0)
            ++matches;
    }
    label(state, row, matches);
}

void findAllInUTF16(benchmark::State& state) {
    findAll(state, false);
}

void findAllInUTF8(benchmark::State& state) {
    findAll(state, true);
}

void replaceAll(benchmark::State& state) {
    const auto& row = cases.at(static_cast<std::size_t>(state.range(0)));
    const auto findings = *RegularExpression::search(row.pattern, true, textOf(row), {});
    for (auto _ : state)
        benchmark::DoNotOptimize(RegularExpression::replacingMatches(findings, "<$0 $1>"));
    label(state, row, findings.matchCount());
}

constexpr std::int64_t lastCase = cases.size() - 1;

BENCHMARK(search)->Name("RegularExpression::search")->DenseRange(0, lastCase)->Unit(benchmark::kMillisecond);
BENCHMARK(findAllInUTF16)->Name("ICU in UTF-16")->DenseRange(0, lastCase)->Unit(benchmark::kMillisecond);
BENCHMARK(findAllInUTF8)->Name("ICU in UTF-8")->DenseRange(0, lastCase)->Unit(benchmark::kMillisecond);
BENCHMARK(replaceAll)
    ->Name("RegularExpression::replacingMatches")
    ->DenseRange(0, lastCase)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
