#include "Utilities/Random.h"

#include "support/ChiSquare.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

namespace korvane {
namespace {

/// A source that gives these values one after the other.
auto scripted(std::vector<std::uint64_t> values) {
    return [values = std::move(values), used = std::size_t{0}]() mutable { return values.at(used++); };
}

TEST(Random, FillsEveryByte) {
    for (const std::size_t size : {0U, 1U, 255U, 256U, 257U, 100'000U}) {
        // By chance, a byte stays 0 in all 64 rounds once in 2^512 runs.
        std::vector<std::byte> seen(size);
        for (int round = 0; round < 64; ++round) {
            std::vector<std::byte> bytes(size);
            ASSERT_TRUE(fillRandom(bytes));
            std::ranges::transform(seen, bytes, seen.begin(), [](auto a, auto b) { return a | b; });
        }
        EXPECT_EQ(std::ranges::count(seen, std::byte{0}), 0) << size;
    }
}

TEST(Random, NeverRepeatsAWordAcrossBlocksAndThreads) {
    // By chance, two of 20,000 words of 64 bits are equal once in 10^11 runs.
    std::array<std::vector<std::uint64_t>, 4> drawn;
    {
        std::vector<std::jthread> threads;
        for (auto& words : drawn)
            threads.emplace_back(
                [&words] { std::ranges::generate_n(std::back_inserter(words), 5000, nextRandom); });
    }
    std::unordered_set<std::uint64_t> seen;
    for (const auto& words : drawn)
        seen.insert(words.begin(), words.end());
    EXPECT_EQ(seen.size(), 20'000U);
}

TEST(Random, UsesTheHighHalfOfTheProduct) {
    constexpr auto last = std::numeric_limits<std::uint64_t>::max();

    struct Row {
        std::string_view name;
        std::uint32_t bound;
        std::vector<std::uint64_t> values;
        std::uint32_t expected;
    };

    const std::vector<Row> rows = {
        {"one choice", 1, {0}, 0},
        {"the first share", 4, {0}, 0},
        {"the end of the first share", 4, {(1ULL << 62) - 1}, 0},
        {"the second share", 4, {1ULL << 62}, 1},
        {"the last value", 82, {last}, 81},
        {"the largest bound",
         std::numeric_limits<std::uint32_t>::max(),
         {last},
         std::numeric_limits<std::uint32_t>::max() - 1},
        // 2^64 mod 10 is 6, so of the products' low halves 0 to 5 are drawn again.
        {"a low half of 0 is drawn again", 10, {0, last}, 9},
        {"each further one is drawn again", 10, {0, 0, 0, 1}, 0},
        // 2^64 mod 3 is 1, and 3 * 0x5555555555555556 is 2^64 + 2.
        {"a low half of 2 is kept by 3", 3, {0x5555555555555556}, 1},
        // 6 * 0x2AAAAAAAAAAAAAAB is 2^64 + 2, and 2^64 mod 6 is 4.
        {"a low half of 2 is drawn again by 6", 6, {0x2AAAAAAAAAAAAAAB, last}, 5},
    };
    for (const auto& row : rows)
        EXPECT_EQ(uniformBelow(row.bound, scripted(row.values)), row.expected) << row.name;
}

TEST(Random, IsUniformBelowABound) {
    for (const std::uint32_t bound : {2U, 3U, 10U, 82U, 160U}) {
        std::vector<std::uint64_t> counts(bound);
        for (int draw = 0; draw < 200'000; ++draw)
            ++counts.at(uniformBelow(bound));
        EXPECT_TRUE(fitsUniform(counts)) << bound;
    }
}

TEST(Random, IsUniformBetweenTwoBounds) {
    std::vector<std::uint64_t> counts(9);
    for (int draw = 0; draw < 200'000; ++draw) {
        const int place = uniformBetween(-3, 5) + 3;
        ++counts.at(static_cast<std::size_t>(place));
    }
    EXPECT_TRUE(fitsUniform(counts));
    EXPECT_EQ(uniformBetween(7, 7), 7);
    for (int draw = 0; draw < 100; ++draw)
        EXPECT_LT(uniformBetween(std::numeric_limits<int>::min(), -1), 0);
}

} // namespace
} // namespace korvane
