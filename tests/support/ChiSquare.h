/// Pearson's chi-square test: whether counted outcomes fit their expected shares. For tests of random
/// programs that must not fail by chance.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <span>

namespace korvane {

/// The probability below which a test fails. All test programs together test fewer than 100 times, so a
/// correct program fails less than once in a million runs. (Counts follow the chi-square distribution that
/// closely only if each outcome is expected a thousand times or more.)
inline constexpr double chiSquareSignificance = 1e-8;

/// The probability that a chi-square variable with `degrees` of freedom (1 or more) is at least `statistic`.
double chiSquareTail(double statistic, std::size_t degrees);

/// Whether `counts` are plausible for independent draws with probabilities in proportion to `weights`. Every
/// weight is above 0; there are as many as counts, at least two.
testing::AssertionResult fitsWeights(std::span<const std::uint64_t> counts, std::span<const double> weights);

/// The same, with all outcomes equally probable.
testing::AssertionResult fitsUniform(std::span<const std::uint64_t> counts);

} // namespace korvane
