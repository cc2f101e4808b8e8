#include "support/ChiSquare.h"

#include <cmath>
#include <numeric>
#include <vector>

namespace korvane {

double chiSquareTail(double statistic, std::size_t degrees) {
    // The regularised incomplete gamma function Q(degrees / 2, x), by its recurrence
    // Q(a + 1, x) = Q(a, x) + x^a e^-x / gamma(a + 1) from Q(1/2, x) or Q(1, x), which are known.
    const auto x = statistic / 2;
    const bool isOdd = degrees % 2 == 1;
    auto a = isOdd ? 0.5 : 1.0;
    auto tail = isOdd ? std::erfc(std::sqrt(x)) : std::exp(-x);
    for (auto left = (degrees - 1) / 2; left > 0; --left, ++a)
        tail += std::exp(a * std::log(x) - x - std::lgamma(a + 1));
    return tail;
}

testing::AssertionResult fitsWeights(std::span<const std::uint64_t> counts, std::span<const double> weights) {
    if (counts.size() != weights.size() || counts.size() < 2)
        return testing::AssertionFailure() << "no weight for each count";
    const auto total = static_cast<double>(std::reduce(counts.begin(), counts.end()));
    const auto allWeights = std::reduce(weights.begin(), weights.end());
    double statistic = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const auto expected = total * weights[i] / allWeights;
        if (expected < 1000)
            return testing::AssertionFailure() << "too few draws: " << expected << " of outcome " << i;
        const auto difference = static_cast<double>(counts[i]) - expected;
        statistic += difference * difference / expected;
    }
    const auto probability = chiSquareTail(statistic, counts.size() - 1);
    if (probability >= chiSquareSignificance)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "chi-square " << statistic << " with " << counts.size() - 1
                                       << " degrees of freedom has a probability of " << probability;
}

testing::AssertionResult fitsUniform(std::span<const std::uint64_t> counts) {
    return fitsWeights(counts, std::vector<double>(counts.size(), 1.0));
}

} // namespace korvane
