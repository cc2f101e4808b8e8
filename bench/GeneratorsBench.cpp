#include "Utilities/LoremIpsumGenerator.h"
#include "Utilities/PasswordGenerator.h"
#include "Utilities/Random.h"
#include "Utilities/UUID.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

namespace korvane::bench {
namespace {

constexpr auto allClasses = CharacterOptions::uppercase | CharacterOptions::lowercase |
                            CharacterOptions::numbers | CharacterOptions::symbols;

/// One for each row of a large document in the tree view. The target is 50 ms.
void rowIdentities(benchmark::State& state) {
    std::vector<UUID> identities(300'000);
    for (auto _ : state) {
        for (auto& identity : identities)
            identity = UUID::random();
        benchmark::DoNotOptimize(identities.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(identities.size()));
}

void uniformIntegers(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(uniformBelow(160));
}

void passwords(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(
            PasswordGenerator::generate(static_cast<int>(state.range()), allClasses, true));
}

void strength(benchmark::State& state) {
    const auto password = PasswordGenerator::generate(static_cast<int>(state.range()), allClasses, false);
    for (auto _ : state)
        benchmark::DoNotOptimize(PasswordGenerator::calculateStrength(password));
}

void paragraphs(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(LoremIpsumGenerator::generateParagraphs(100, true));
}

void counts(benchmark::State& state) {
    const auto text = LoremIpsumGenerator::generateParagraphs(100, true);
    for (auto _ : state) {
        benchmark::DoNotOptimize(LoremIpsumGenerator::wordCount(text));
        benchmark::DoNotOptimize(LoremIpsumGenerator::sentenceCount(text));
        benchmark::DoNotOptimize(LoremIpsumGenerator::paragraphCount(text));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

BENCHMARK(rowIdentities)->Name("UUID::random, 300,000 of them")->Unit(benchmark::kMillisecond);
BENCHMARK(uniformIntegers)->Name("uniformBelow");
BENCHMARK(passwords)->Name("PasswordGenerator::generate")->Arg(16)->Arg(128);
BENCHMARK(strength)->Name("PasswordGenerator::calculateStrength")->Arg(16)->Arg(128);
BENCHMARK(paragraphs)->Name("LoremIpsumGenerator::generateParagraphs, 100")->Unit(benchmark::kMicrosecond);
BENCHMARK(counts)->Name("LoremIpsumGenerator's counts")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace korvane::bench
