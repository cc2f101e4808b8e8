#include "DiffTexts.h"
#include "Utilities/Diff/DiffEngine.h"

#include <benchmark/benchmark.h>

#include <string>

namespace korvane::bench {
namespace {

void compare(benchmark::State& state, const DiffTextsKind& kind) {
    const auto texts = kind.generate();
    for (auto _ : state)
        benchmark::DoNotOptimize(DiffEngine::compare(texts.left, texts.right));
}

const bool areRegistered = [] {
    for (const auto& kind : diffTexts) {
        benchmark::RegisterBenchmark(("DiffEngine::compare/" + std::string(kind.name)).c_str(), compare, kind)
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

} // namespace
} // namespace korvane::bench
