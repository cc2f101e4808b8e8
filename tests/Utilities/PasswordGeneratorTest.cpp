#include "Utilities/PasswordGenerator.h"

#include "support/ChiSquare.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

using PasswordGenerator::calculateEntropy;
using PasswordGenerator::calculateStrength;
using PasswordGenerator::generate;
using PasswordGenerator::generateBulk;

constexpr auto uppercase = CharacterOptions::uppercase;
constexpr auto lowercase = CharacterOptions::lowercase;
constexpr auto numbers = CharacterOptions::numbers;
constexpr auto symbols = CharacterOptions::symbols;
constexpr auto all = uppercase | lowercase | numbers | symbols;

struct Pool {
    std::string_view name;
    CharacterOptions options;
    bool excludeAmbiguous;
    std::string_view characters;
};

constexpr Pool pools[] = {
    {"upper-case", uppercase, false, "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
    {"lower-case", lowercase, false, "abcdefghijklmnopqrstuvwxyz"},
    {"numbers", numbers, false, "0123456789"},
    {"symbols", symbols, false, "!@#$%^&*()_+-=[]{}|;:,.<>?"},
    {"letters", uppercase | lowercase, false, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"},
    {"symbols and numbers", symbols | numbers, false, "0123456789!@#$%^&*()_+-=[]{}|;:,.<>?"},
    {"all", all, false,
     "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789!@#$%^&*()_+-=[]{}|;:,.<>?"},
    {"unambiguous upper-case", uppercase, true, "ABCDEFGHJKLMNPQRSTUVWXYZ"},
    {"unambiguous lower-case", lowercase, true, "abcdefghijkmnopqrstuvwxyz"},
    {"unambiguous numbers", numbers, true, "23456789"},
    {"unambiguous symbols", symbols, true, "!@#$%^&*()_+-=[]{};:,.<>?"},
    {"all unambiguous", all, true,
     "ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz23456789!@#$%^&*()_+-=[]{};:,.<>?"},
};

/// A secure source that gives the bytes 0, 1, 2, ..., and a general one that must not be called.
RandomSources countingBytes() {
    return {.fill =
                [](std::span<std::byte> bytes) {
                    for (std::size_t i = 0; i < bytes.size(); ++i)
                        bytes[i] = static_cast<std::byte>(i);
                    return true;
                },
            .next = []() -> std::uint64_t { throw std::logic_error("the secure source had not failed"); }};
}

/// A secure source that fails after writing something, and `next` as the general source.
RandomSources failing(std::function<std::uint64_t()> next) {
    return {.fill =
                [](std::span<std::byte> bytes) {
                    std::ranges::fill(bytes, std::byte{1});
                    return false;
                },
            .next = std::move(next)};
}

TEST(CharacterOptions, FormASet) {
    EXPECT_EQ(uppercase.rawValue, 1U);
    EXPECT_EQ(lowercase.rawValue, 2U);
    EXPECT_EQ(numbers.rawValue, 4U);
    EXPECT_EQ(symbols.rawValue, 8U);
    EXPECT_EQ(all.rawValue, 15U);
    EXPECT_EQ((uppercase | numbers) & (numbers | symbols), numbers);
    EXPECT_TRUE((uppercase | numbers).contains(numbers));
    EXPECT_FALSE((uppercase | numbers).contains(numbers | symbols));
    EXPECT_TRUE(CharacterOptions{}.contains({}));
}

TEST(PasswordGenerator, MapsEachByteToACharacterByModulo) {
    for (const auto& pool : pools) {
        const auto password = generate(256, pool.options, pool.excludeAmbiguous, countingBytes());
        ASSERT_EQ(password.size(), 256U) << pool.name;
        for (std::size_t byte = 0; byte < 256; ++byte)
            EXPECT_EQ(password[byte], pool.characters[byte % pool.characters.size()])
                << pool.name << ' ' << byte;
    }
}

TEST(PasswordGenerator, HasTheDistributionOfTheModulo) {
    constexpr int draws = 1'000'000;
    for (const auto& pool : pools) {
        std::map<char, std::uint64_t> counts;
        for (const char character : generate(draws, pool.options, pool.excludeAmbiguous))
            ++counts[character];
        std::vector<std::uint64_t> inOrder;
        std::vector<double> weights;
        for (std::size_t i = 0; i < pool.characters.size(); ++i) {
            inOrder.push_back(counts[pool.characters[i]]);
            const auto bytes = (256 - i + pool.characters.size() - 1) / pool.characters.size();
            weights.push_back(static_cast<double>(bytes)); // of the 256 that map to this character
        }
        EXPECT_EQ(counts.size(), pool.characters.size()) << pool.name << " has no other characters";
        EXPECT_TRUE(fitsWeights(inOrder, weights)) << pool.name;
    }
}

TEST(PasswordGenerator, DrawsUniformlyWhenTheSecureSourceFails) {
    constexpr int draws = 1'000'000;
    for (const auto& pool : pools) {
        std::map<char, std::uint64_t> counts;
        for (const char character : generate(draws, pool.options, pool.excludeAmbiguous, failing(nextRandom)))
            ++counts[character];
        std::vector<std::uint64_t> inOrder;
        for (const char character : pool.characters)
            inOrder.push_back(counts[character]);
        EXPECT_EQ(counts.size(), pool.characters.size()) << pool.name << " has no other characters";
        EXPECT_TRUE(fitsUniform(inOrder)) << pool.name;
    }
}

TEST(PasswordGenerator, UsesTheHighHalfOfTheProductWhenTheSecureSourceFails) {
    // Eighths of 2^64, and just below one: 2^64 is a multiple of 8, so nothing is drawn again.
    auto next = [values = std::vector<std::uint64_t>{0, 1ULL << 61, (1ULL << 61) - 1, ~0ULL},
                 used = std::size_t{0}]() mutable { return values.at(used++); };
    EXPECT_EQ(generate(4, numbers, true, failing(next)), "2329");
}

TEST(PasswordGenerator, ReturnsAnEmptyTextForNoLengthOrNoCharacters) {
    EXPECT_EQ(generate(16, {}, false), "");
    EXPECT_EQ(generate(16, {}, true), "");
    EXPECT_EQ(generate(0, all, false), "");
    EXPECT_EQ(generate(-1, all, false), "");
    EXPECT_EQ(generate(std::numeric_limits<int>::min(), all, true), "");
    EXPECT_EQ(generate(16, {}, false, failing([]() -> std::uint64_t { return 0; })), "");
}

TEST(PasswordGenerator, PasswordHasTheRequestedLength) {
    for (const int length : {1, 4, 16, 128, 4096})
        EXPECT_EQ(generate(length, all, false).size(), static_cast<std::size_t>(length));
}

TEST(PasswordGenerator, GeneratesDistinctPasswordsInBulk) {
    const auto passwords = generateBulk(50, 32, all, false);
    ASSERT_EQ(passwords.size(), 50U);
    EXPECT_EQ(std::set(passwords.begin(), passwords.end()).size(), 50U);
    EXPECT_TRUE(std::ranges::all_of(passwords, [](const auto& password) { return password.size() == 32; }));
    EXPECT_EQ(generateBulk(0, 32, all, false).size(), 0U);
    EXPECT_EQ(generateBulk(-1, 32, all, false).size(), 0U);
    EXPECT_EQ(generateBulk(3, 32, {}, false), std::vector<std::string>(3));
}

TEST(PasswordGenerator, EstimatesEntropy) {
    struct Row {
        std::string_view password;
        int poolSize;
        int characters;
    };

    constexpr Row rows[] = {
        {"", 1, 0},
        {"abc", 26, 3},
        {"ABC", 26, 3},
        {"123", 10, 3},
        {"!?", 32, 2},
        {"aB3!", 94, 4},
        {"abcDEF", 52, 6},
        {"abc123", 36, 6},
        {"a b", 58, 3},
        {"é", 26, 1},
        {"e\u0301E\u0301", 52, 2},
        {"漢字", 1, 2}, // letters without case add nothing to the pool
        {"漢字a", 26, 3},
        {"一", 10, 1},
        {"👍👍", 32, 2},
        {"\r\n", 32, 1},
    };
    for (const auto& row : rows)
        EXPECT_DOUBLE_EQ(calculateEntropy(row.password), row.characters * std::log2(row.poolSize))
            << row.password;
    EXPECT_NEAR(calculateEntropy("abc"), 14.10, 0.005);
    EXPECT_NEAR(calculateEntropy("aB3!"), 26.22, 0.005);
    EXPECT_NEAR(calculateEntropy("k7#Vq9!mZx2@Rw4L"), 104.9, 0.05);
}

struct StrengthRow {
    std::string_view name;
    std::string_view password;
    PasswordStrength strength;
};

TEST(PasswordGenerator, RatesByLengthVarietyAndEntropy) {
    using enum PasswordStrength;
    constexpr StrengthRow rows[] = {
        // The score is the sum of the steps of length, the classes and the steps of entropy.
        {"nothing", "", veryWeak},
        {"0 + 1 + 0", "q", veryWeak},
        {"0 + 2 + 0, 7 characters", "qzwvbn7", veryWeak},
        {"0 + 3 + 1, 7 characters", "qzWvbn7", weak},
        {"1 + 1 + 0, 37.6 bits", "qzwvbnmk", veryWeak},
        {"1 + 2 + 1, 41.4 bits", "qzwvbnm7", weak},
        {"1 + 3 + 1", "qzWvbnm7", fair},
        {"1 + 4 + 1, 52.4 bits", "qzWvbn7!", fair},
        {"1 + 4 + 1, 59.0 bits", "qzWvbn7!p", fair},
        {"1 + 4 + 2, 65.5 bits", "qzWvbn7!pL", strong},
        {"1 + 4 + 2, 11 characters", "qzWvbn7!pLk", strong},
        {"2 + 4 + 2", "qzWvbn7!pLkx", strong},
        {"2 + 1 + 1, 56.4 bits", "qzwvbnmkplxr", weak},
        {"2 + 4 + 2, 15 characters", "qzWvbn7!pLkxR4t", strong},
        {"3 + 4 + 2", "k7#Vq9!mZx2@Rw4L", veryStrong},
        {"3 + 1 + 2", "qzwvbnmkplxrtqzw", fair},
        {"3 + 3 + 2", "Jt5u8Kd2Zm7Qw3Vn", strong},
        {"3 + 4 + 2, 19 characters", "k7#Vq9!mZx2@Rw4L8p?", veryStrong},
        {"4 + 4 + 2", "k7#Vq9!mZx2@Rw4L8p?T", veryStrong},
        {"4 + 3 + 2, 20 characters", "k7xVq9ymZx2hRw4L8pWT", veryStrong},
        {"4 + 2 + 2", "kQxVqEymZxBhRwPLGpWT", strong},
        {"characters are counted, not bytes: 0 + 1 + 0", "éééé", veryWeak},
    };
    for (const auto& row : rows)
        EXPECT_EQ(label(calculateStrength(row.password)), label(row.strength))
            << row.name << ": " << row.password;
}

/// Whether a text has a common pattern: with one, a password of 20 characters and all classes is only strong.
/// The rest of that password neither has nor continues a run.
bool isCommon(std::string_view text) {
    const std::string rest = "k7#Vq9!mZx2@Rw4L8p?T";
    EXPECT_EQ(calculateStrength(rest), PasswordStrength::veryStrong);
    return calculateStrength(rest + "~" + std::string(text)) == PasswordStrength::strong;
}

TEST(PasswordGenerator, DetectsCommonPatterns) {
    struct Row {
        std::string_view text;
        bool isCommon;
    };

    constexpr Row rows[] = {
        // words, in any case and anywhere
        {"123", true},
        {"abc", true},
        {"qwerty", true},
        {"password", true},
        {"admin", true},
        {"letmein", true},
        {"welcome", true},
        {"monkey", true},
        {"dragon", true},
        {"master", true},
        {"111", true},
        {"000", true},
        {"Password1", true},
        {"QWERTY", true},
        {"MonKeys", true},
        {"xY9abc", true},
        {"9000", true},
        {"1112", true},
        // ascending runs
        {"RsT", true},
        {"xyz", true},
        {"789", true},
        {"012", true},
        {":;<", true},
        {"j\u212Al", true},
        {"\t\r\n\v", true},
        {"\x7f\x80", false},
        {"~\x7f\x80", false},
        {"\x81\x82\x83", false},
        // no common pattern
        {"a1b2c3d4", false},
        {"Zyx", false},
        {"cba", false},
        {"321", false},
        {"222", false},
        {"11", false},
        {"ab", false},
        {"abd", false},
        {"asdf", false},
        {"qwert", false},
        {"passwor", false},
        {"a", false},
        {"", false},
        {"acegik", false},
        {"aabbcc", false},
        {"äbc", false},
        {"\u03B1\u03B2\u03B3", false},
        {"12é3", false},
        // a letter with a combining mark is another character
        {"ab\u0063\u0301", false},
        {"11\u0031\u0301", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(isCommon(row.text), row.isCommon) << row.text;
}

TEST(PasswordGenerator, DeductsForACommonPattern) {
    EXPECT_EQ(calculateStrength("k7#Vq9!mZx2@Rw4L8p?T"), PasswordStrength::veryStrong);
    EXPECT_EQ(calculateStrength("k7#Vq9!mZx123w4L8p?T"), PasswordStrength::strong);
    EXPECT_EQ(calculateStrength("password123ABCde"), PasswordStrength::fair);
    EXPECT_EQ(calculateStrength("Password1"), PasswordStrength::weak);
    EXPECT_EQ(calculateStrength("abc"), PasswordStrength::veryWeak) << "the score is below 0";
}

TEST(PasswordStrength, IsOrderedAndNamed) {
    struct Row {
        PasswordStrength strength;
        int rawValue;
        std::string_view label;
        PaletteColor color;
    };

    constexpr Row rows[] = {
        {PasswordStrength::veryWeak, 0, "Very Weak", PaletteColor::red},
        {PasswordStrength::weak, 1, "Weak", PaletteColor::orange},
        {PasswordStrength::fair, 2, "Fair", PaletteColor::yellow},
        {PasswordStrength::strong, 3, "Strong", PaletteColor::green},
        {PasswordStrength::veryStrong, 4, "Very Strong", PaletteColor::mint},
    };
    EXPECT_TRUE(std::ranges::is_sorted(rows, std::less{}, &Row::strength));
    EXPECT_EQ(allCases<PasswordStrength>.size(), std::size(rows));
    for (const auto& row : rows) {
        EXPECT_EQ(static_cast<int>(row.strength), row.rawValue);
        EXPECT_EQ(label(row.strength), row.label);
        EXPECT_EQ(color(row.strength), row.color);
    }
}

RC_GTEST_PROP(PasswordGenerator, RatesAnyPasswordWithinTheBounds, (const std::string& password)) {
    const auto entropy = calculateEntropy(password);
    RC_ASSERT(entropy >= 0);
    RC_ASSERT(entropy <= std::log2(94) * static_cast<double>(password.size()) + 1e-9);
    if (password.size() < 8) // at most four classes and an entropy of 45.9 bits: 4 + 1 points
        RC_ASSERT(calculateStrength(password) <= PasswordStrength::fair);
}

} // namespace
} // namespace korvane
