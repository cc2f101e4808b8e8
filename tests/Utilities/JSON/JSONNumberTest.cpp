#include "Utilities/JSON/JSONNumber.h"

#include "Utilities/JSON/JSON.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace korvane {
namespace {

struct JSONNumberRow {
    std::string_view literal;
    std::string_view expected;
};

constexpr JSONNumberRow jsonNumberRows[] = {
    {"0", "0"},
    {"-0", "-0"},
    {"0.0", "0"},
    {"-0.000", "-0"},
    {"0e99999999999", "0"},
    {"-0E-99999999999999999999999999", "-0"},
    {"1.0", "1"},
    {"-1.50", "-1.5"},
    {"100", "100"},
    {"1e3", "1000"},
    {"1E+3", "1000"},
    {"1.25e1", "12.5"},
    {"1.25e2", "125"},
    {"1.25e3", "1250"},
    {"12.5e-1", "1.25"},
    {"12.5e-2", "0.125"},
    {"12.5e-3", "0.0125"},
    {"1e0", "1"},
    {"1e-0", "1"},
    {"1e0003", "1000"},
    {"0.001e3", "1"},
    {"1000e-3", "1"},
    {"17478252242305210114", "17478252242305210114"},
    {"1.777777777777777", "1.777777777777777"},
    {"5.107091491635510056019771245", "5.107091491635510056019771245"},
    {"1e400", "1e400"},
    {"-125e-302", "-1.25e-300"},
    // forty digits, and one more
    {"1234567890123456789012345678901234567890", "1234567890123456789012345678901234567890"},
    {"12345678901234567890123456789012345678901", "1.2345678901234567890123456789012345678901e40"},
    {"1e39", "1000000000000000000000000000000000000000"},
    {"1e40", "1e40"},
    {"10000000000000000000000000000000000000000", "1e40"},
    {"1e-39", "0.000000000000000000000000000000000000001"},
    {"1e-40", "1e-40"},
    {"0.0000000000000000000000000000000000000001", "1e-40"},
    {"12345678901234567890.12345678901234567890", "12345678901234567890.1234567890123456789"},
    {"12345678901234567890.123456789012345678901", "1.2345678901234567890123456789012345678901e19"},
    {"0.1000000000000000000000000000000000000000000000", "0.1"},
    // exponents beyond every integer type
    {"1e99999999999999999999999", "1e99999999999999999999999"},
    {"1e+00099999999999999999999999", "1e99999999999999999999999"},
    {"10e99999999999999999999999", "1e100000000000000000000000"},
    {"0.01e100000000000000000000001", "1e99999999999999999999999"},
    {"0.1e1000000000000000000", "1e999999999999999999"},
    {"-10.5e-1000000000000000000", "-1.05e-999999999999999999"},
    {"0.01e-99999999999999999999999", "1e-100000000000000000000001"},
};

TEST(JSONNumber, IsWrittenInCanonicalForm) {
    for (const auto& [literal, expected] : jsonNumberRows) {
        EXPECT_EQ(JSON::canonicalNumber(literal), expected) << literal;
        const auto document = JSON::parse(literal, {.fragmentsAllowed = true});
        ASSERT_TRUE(document) << literal;
        EXPECT_EQ(document->root().text(), expected) << literal;
    }
}

TEST(JSONNumber, CanonicalFormStaysUnchanged) {
    for (const auto& row : jsonNumberRows)
        EXPECT_EQ(JSON::canonicalNumber(row.expected), row.expected);
}

TEST(JSONNumber, IsConvertedInLinearTimeForAnyExponent) {
    const std::string manyDigits(1'000'000, '7');
    EXPECT_EQ(JSON::canonicalNumber("1e" + manyDigits), "1e" + manyDigits);
    EXPECT_EQ(JSON::canonicalNumber("0." + std::string(1'000'000, '0') + "5e1000001"), "5");
    EXPECT_EQ(JSON::canonicalNumber(manyDigits + "e-" + std::to_string(manyDigits.size())),
              "7." + manyDigits.substr(1) + "e-1");
}

TEST(JSONNumber, ConvertsToTheNearestDouble) {
    const auto number = [](std::string_view literal) {
        return JSON::parse(literal, {.fragmentsAllowed = true})->root().number();
    };
    EXPECT_EQ(number("1735689600"), 1735689600.0);
    EXPECT_EQ(number("1735689600.25"), 1735689600.25);
    EXPECT_EQ(number("-1.5e2"), -150.0);
    EXPECT_EQ(number("0.1"), 0.1);
    EXPECT_TRUE(std::signbit(number("-0")));
    EXPECT_EQ(number("1e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(number("-1e99999999999999999999"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(number("1e-400"), 0.0);
    EXPECT_EQ(number("\"12\""), 0.0);
}

/// The canonical form, by moving the decimal point one digit at a time.
std::string naiveForm(std::string whole, std::string fraction, int exponent) {
    for (; exponent > 0; --exponent) {
        whole += fraction.empty() ? '0' : fraction.front();
        fraction.erase(0, 1);
    }
    for (; exponent < 0; ++exponent) {
        fraction.insert(0, 1, whole.empty() ? '0' : whole.back());
        if (!whole.empty())
            whole.pop_back();
    }
    while (whole.size() > 1 && whole.front() == '0')
        whole.erase(0, 1);
    while (!fraction.empty() && fraction.back() == '0')
        fraction.pop_back();
    if (whole.empty())
        whole = "0";
    if (whole.size() + fraction.size() <= 40)
        return fraction.empty() ? whole : whole + "." + fraction;
    int power = 0;
    for (; whole == "0"; --power) {
        whole = fraction.front();
        fraction.erase(0, 1);
    }
    for (; whole.size() > 1; ++power) {
        fraction.insert(0, 1, whole.back());
        whole.pop_back();
    }
    while (!fraction.empty() && fraction.back() == '0')
        fraction.pop_back();
    return whole + (fraction.empty() ? "" : "." + fraction) + "e" + std::to_string(power);
}

RC_GTEST_PROP(JSONNumber, AgreesWithMovingThePointDigitByDigit, ()) {
    const auto digits = [](std::size_t minSize) {
        auto text = *rc::gen::container<std::string>(
            rc::gen::weightedElement<char>({{8, '0'}, {1, '1'}, {1, '2'}, {1, '5'}, {1, '9'}}));
        text.resize(std::max(text.size(), minSize), '7');
        return text;
    };
    auto whole = digits(1);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
    const auto fraction = digits(0);
    const auto exponent = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(-60, 60));
    const bool isNegative = *rc::gen::arbitrary<bool>();
    const std::string sign = isNegative ? "-" : "";
    auto literal = sign + whole;
    if (!fraction.empty())
        literal += "." + fraction;
    if (exponent != 0)
        literal += "e" + std::to_string(exponent);
    RC_ASSERT(JSON::canonicalNumber(literal) == sign + naiveForm(whole, fraction, exponent));
}

} // namespace
} // namespace korvane
