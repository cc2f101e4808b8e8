#include "Utilities/TextTransformer.h"

#include "MixedDocument.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane::bench {
namespace {

constexpr std::size_t textSize = std::size_t{16} << 20;

std::string repeated(std::string_view piece, std::size_t size = textSize) {
    std::string text;
    while (text.size() < size)
        text += piece;
    return text;
}

std::string english() {
    return repeated("The quick brown fox jumps over the lazy dog, and the dog does not mind. Why should it?\n"
                    "Nothing to see here; the build is green.\n\n");
}

std::string manyScripts() {
    return repeated(
        "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich. 👩‍🚀 🇳🇴 👍🏽\n"
        "Съешь же ещё этих мягких французских булок, да выпей чаю.\n"
        "いろはにほへと ちりぬるを 我が世誰ぞ 常ならむ。 漢字\n"
        "키스의 고유조건은 입술끼리 만나야 하고 특별한 기술은 필요치 않다.\n"
        "ऋषियों को सताने वाले दुष्ट राक्षसों के राजा रावण का सर्वनाश करने वाले विष्णुवतार\n"
        "نص حكيم له سر قاطع وذو شأن عظيم مكتوب على ثوب أخضر\n\n");
}

std::string hindi() {
    return repeated("ऋषियों को सताने वाले दुष्ट राक्षसों के राजा रावण का सर्वनाश करने वाले विष्णुवतार\n");
}

/// A million unsorted lines, many with the same prefix.
std::string lines() {
    std::string text;
    std::uint32_t state = 1;
    for (int line = 0; line < 1'000'000; ++line) {
        state = state * 1'664'525 + 1'013'904'223;
        text += (state >> 30) == 0 ? "Ünïcode name " : "customer record ";
        text += std::to_string(state >> 8) + " of the archive\n";
    }
    return text;
}

void setBytes(benchmark::State& state, std::string_view text) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void getStats(benchmark::State& state, std::string (*make)()) {
    const auto text = make();
    for (auto _ : state)
        benchmark::DoNotOptimize(TextTransformer::getStats(text));
    setBytes(state, text);
}

/// A key press in the middle of a 1 MB text.
void updateRunningStats(benchmark::State& state, std::string (*make)()) {
    const Rope text = make().substr(0, 1'000'000);
    const auto middle = text.summaryBefore(text.size() / 2).bytes;
    const auto longer = text.replacing(middle, middle, "x");
    TextTransformer::RunningStats running;
    running.update(text);
    for (auto _ : state) {
        running.update(longer);
        running.update(text);
    }
    state.SetItemsProcessed(state.iterations() * 2);
}

void transform(benchmark::State& state, std::string (*make)(), CaseTransform to) {
    const auto text = make();
    for (auto _ : state)
        benchmark::DoNotOptimize(TextTransformer::transform(text, to));
    setBytes(state, text);
}

void applyLineOperation(benchmark::State& state, LineOperation operation) {
    const auto text = lines();
    for (auto _ : state)
        benchmark::DoNotOptimize(TextTransformer::applyLineOperation(text, operation));
    setBytes(state, text);
}

const int registered = [] {
    using Make = std::string (*)();
    const std::pair<std::string, Make> texts[] = {
        {"English", english}, {"many scripts", manyScripts}, {"Hindi", hindi}};
    for (const auto& [name, make] : texts) {
        benchmark::RegisterBenchmark(("getStats/" + name).c_str(), getStats, make)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("RunningStats/" + name).c_str(), updateRunningStats, make)
            ->Unit(benchmark::kMillisecond);
        for (const auto to : allCases<CaseTransform>) {
            const auto title = "transform/" + std::string(rawValue(to)) + "/" + name;
            benchmark::RegisterBenchmark(title.c_str(), transform, make, to)->Unit(benchmark::kMillisecond);
        }
    }
    for (const auto operation : allCases<LineOperation>) {
        const auto title = "applyLineOperation/" + std::string(rawValue(operation));
        benchmark::RegisterBenchmark(title.c_str(), applyLineOperation, operation)
            ->Unit(benchmark::kMillisecond);
    }
    return 0;
}();

} // namespace
} // namespace korvane::bench
