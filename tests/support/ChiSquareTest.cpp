#include "support/ChiSquare.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace korvane {
namespace {

TEST(ChiSquare, KnowsThePublishedCriticalValues) {
    struct Row {
        std::size_t degrees;
        double statistic;
        double tail;
    };

    constexpr std::array rows = {
        Row{1, 3.841, 0.05},    Row{1, 10.828, 0.001},    Row{2, 5.991, 0.05},   Row{2, 13.816, 0.001},
        Row{5, 11.070, 0.05},   Row{10, 29.588, 0.001},   Row{30, 43.773, 0.05}, Row{31, 61.098, 0.001},
        Row{99, 123.225, 0.05}, Row{100, 149.449, 0.001},
    };
    for (const auto& row : rows)
        EXPECT_NEAR(chiSquareTail(row.statistic, row.degrees) / row.tail, 1, 0.001) << row.degrees;
}

TEST(ChiSquare, AcceptsTheSharesAndRejectsOthers) {
    EXPECT_TRUE(fitsUniform(std::vector<std::uint64_t>{10'050, 9'950, 10'000}));
    EXPECT_FALSE(fitsUniform(std::vector<std::uint64_t>{10'500, 9'500, 10'000}));
    EXPECT_TRUE(fitsWeights(std::vector<std::uint64_t>{20'050, 9'950}, std::vector{2.0, 1.0}));
    EXPECT_FALSE(fitsWeights(std::vector<std::uint64_t>{20'050, 9'950}, std::vector{1.0, 1.0}));
    EXPECT_FALSE(fitsUniform(std::vector<std::uint64_t>{20, 20})) << "too few to tell";
}

} // namespace
} // namespace korvane
