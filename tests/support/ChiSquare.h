/// Pearson's chi-square test: whether counted outcomes fit the shares that they should have. It is made for
/// tests of random programs that must not fail by chance.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <span>

namespace korvane {

/// How improbable an outcome must be before a test fails on it. All test programs together ask fewer than 100
/// times, so a correct program fails less than once in a million runs. (A statistic of counts follows the
/// chi-square distribution that closely only where each outcome is expected a thousand times or more.)
inline constexpr double chiSquareSignificance = 1e-8;

/// The probability that a chi-square variable of so many degrees of freedom (1 or more) is at least
/// `statistic`.
double chiSquareTail(double statistic, std::size_t degrees);

/// Whether `counts` are what independent draws with probabilities in proportion to `weights` may give. Every
/// weight is above 0; there are as many as counts, and at least two.
testing::AssertionResult fitsWeights(std::span<const std::uint64_t> counts, std::span<const double> weights);

/// The same, with all outcomes equally probable.
testing::AssertionResult fitsUniform(std::span<const std::uint64_t> counts);

} // namespace korvane
