#include "Utilities/Text/DoubleText.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace korvane {
namespace {

constexpr auto infinity = std::numeric_limits<double>::infinity();

TEST(DoubleText, ReadsEveryFormOfANumber) {
    const std::pair<std::string, double> rows[] = {
        {"0", 0},
        {"-0", -0.0},
        {"12", 12},
        {"+12", 12},
        {"-86400", -86400},
        {"1700000000", 1.7e9},
        {"1.5", 1.5},
        {"1.", 1},
        {".5", 0.5},
        {"1.5e9", 1.5e9},
        {"1.5E9", 1.5e9},
        {"1e+3", 1000},
        {"25e-1", 2.5},
        {"007", 7},
        {"0x10", 16},
        {"0X1.8p3", 12},
        {"-0x1p-1", -0.5},
        {"inf", infinity},
        {"INF", infinity},
        {"-Infinity", -infinity},
        {"+infinity", infinity},
        {"1e400", infinity},
        {"-1e400", -infinity},
        {"1e-400", 0},
        {"0.1", 0.1},
        {"9007199254740993", 9007199254740992},
        {std::string(100'000, '0') + "7", 7},
        {"0." + std::string(100'000, '0') + "7", 0},
    };
    for (const auto& [text, number] : rows) {
        const auto read = doubleFromText(text);
        ASSERT_TRUE(read) << text.substr(0, 20);
        EXPECT_EQ(*read, number) << text.substr(0, 20);
        EXPECT_EQ(std::signbit(*read), std::signbit(number)) << text.substr(0, 20);
    }
    for (const auto* text : {"nan", "NaN", "-nan", "nan(1)"}) {
        const auto read = doubleFromText(text);
        ASSERT_TRUE(read) << text;
        EXPECT_TRUE(std::isnan(*read)) << text;
    }
}

TEST(DoubleText, RejectsAnyOtherText) {
    constexpr std::string_view rows[] = {
        "",      " ",   "12abc", "abc",  " 12",       "12 ",    "\n12",   "12\n",    "\t1",  "1,5", "1 000",
        "1_0",   "--1", "+-1",   "+",    "-",         ".",      "e5",     "1e",      "1e+",  "0x",  "0xg",
        "1.2.3", "in",  "infin", "nan(", "1\xc2\xa0", "\u0661", "\uff11", "\u22121", "\xff",
    };
    for (const auto text : rows)
        EXPECT_EQ(doubleFromText(text), std::nullopt) << '"' << text << '"';
    EXPECT_EQ(doubleFromText(std::string_view("1\0", 2)), std::nullopt);
    EXPECT_EQ(doubleFromText(std::string_view("1\0002", 3)), std::nullopt);
}

/// The number in hexadecimal, without rounding.
std::string hexadecimal(double number) {
    std::array<char, 40> digits{};
    const auto [end, error] =
        std::to_chars(digits.begin(), digits.end(), std::fabs(number), std::chars_format::hex);
    return (std::signbit(number) ? "-0x" : "0x") + std::string(digits.begin(), end);
}

RC_GTEST_PROP(DoubleText, RoundTripsEveryFiniteDouble, (std::uint64_t bits)) {
    const auto number = std::bit_cast<double>(bits);
    RC_PRE(std::isfinite(number));
    RC_ASSERT(doubleFromText(fmt::format("{}", number)) == number);
    RC_ASSERT(doubleFromText(hexadecimal(number)) == number);
}

} // namespace
} // namespace korvane
