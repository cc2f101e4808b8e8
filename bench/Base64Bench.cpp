#include "Utilities/Base64.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace korvane::bench {
namespace {

std::string pseudorandomBytes() {
    std::string bytes(std::size_t{32} << 20, '\0');
    std::uint32_t state = 1;
    for (auto& byte : bytes) {
        state = state * 1'664'525 + 1'013'904'223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

void encode(benchmark::State& state) {
    const auto bytes = pseudorandomBytes();
    for (auto _ : state)
        benchmark::DoNotOptimize(Base64::encode(bytes));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void decode(benchmark::State& state) {
    const auto text = Base64::encode(pseudorandomBytes());
    for (auto _ : state)
        benchmark::DoNotOptimize(Base64::decode(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

BENCHMARK(encode)->Name("Base64::encode")->Unit(benchmark::kMillisecond);
BENCHMARK(decode)->Name("Base64::decode")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
