#include "MixedDocument.h"
#include "Utilities/JSON/JSON.h"
#include "Utilities/JSON/JSONFormatter.h"
#include "Utilities/Text/Text.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace korvane::bench {
namespace {

const std::string& document() {
    static const std::string text = mixedDocument(13'000'000);
    return text;
}

/// Runs `operation` on the document and reports bytes of the document a second.
template <typename Operation>
void measure(benchmark::State& state, Operation operation) {
    for (auto _ : state)
        benchmark::DoNotOptimize(operation(document()));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document().size()));
}

void prettify(benchmark::State& state) {
    measure(state, [](const std::string& text) { return JSONFormatter::prettify(text, 2); });
}

void minify(benchmark::State& state) {
    measure(state, [](const std::string& text) { return JSONFormatter::minify(text); });
}

void validate(benchmark::State& state) {
    measure(state, [](const std::string& text) { return JSONFormatter::validate(text); });
}

void parseToTree(benchmark::State& state) {
    measure(state, [](const std::string& text) { return JSONFormatter::parseToTree(text); });
}

void checkUTF8(benchmark::State& state) {
    measure(state, [](const std::string& text) { return isValidUTF8(text); });
}

BENCHMARK(prettify)->Name("JSONFormatter::prettify")->Unit(benchmark::kMillisecond);
BENCHMARK(minify)->Name("JSONFormatter::minify")->Unit(benchmark::kMillisecond);
BENCHMARK(validate)->Name("JSONFormatter::validate")->Unit(benchmark::kMillisecond);
BENCHMARK(parseToTree)->Name("JSONFormatter::parseToTree")->Unit(benchmark::kMillisecond);
BENCHMARK(checkUTF8)->Name("isValidUTF8")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
