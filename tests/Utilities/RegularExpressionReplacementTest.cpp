#include "Utilities/RegularExpression.h"

#include "support/Searches.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

using namespace support;

struct ReplacementRow {
    std::string_view name;
    std::string_view pattern;
    std::string text;
    std::string_view replacement;
    std::string_view expected;
};

class RegularExpressionReplacement : public testing::TestWithParam<ReplacementRow> {};

TEST_P(RegularExpressionReplacement, Replaces) {
    const auto& row = GetParam();
    EXPECT_EQ(RegularExpression::replacingMatches(search(row.pattern, row.text), row.replacement),
              row.expected);
}

constexpr auto tenGroups = "(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)";

const ReplacementRow replacementRows[] = {
    {"SwapsGroups", R"((\w+)-(\w+))", "a-b c-d", "$2 $1", "b a d c"},
    {"WholeMatch", "b", "abc", "<$0>", "a<b>c"},
    {"NoMatch", "x", "abc", "y", "abc"},
    {"Deletes", "b", "abc", "", "ac"},
    {"BackslashDigitIsTheDigit", "(b)", "abc", R"(\1)", "a1c"},
    {"BackslashDollarIsTheDollar", "(b)", "abc", R"(\$1)", "a$1c"},
    {"BackslashBackslash", "(b)", "abc", R"(\\$1)", "a\\bc"},
    {"BackslashLetterIsTheLetter", "b", "abc", R"(\n\u0041)", "anu0041c"},
    {"BackslashBeforeAPair", "b", "abc", "\\😀", "a😀c"},
    {"BackslashAtTheEnd", "b", "abc", "x\\", "axc"},
    {"DollarAtTheEnd", "b", "abc", "x$", "ax$c"},
    {"DollarBeforeALetter", "(?<n>b)", "abc", "${n}$n", "a${n}$nc"},
    {"DollarDollarDigit", "(b)", "abc", "$$1", "a$bc"},
    {"DollarBeforeAnotherScriptsDigit", "(b)", "abc", "$\u0661", "a$\u0661c"},
    {"AbsentGroupIsEmpty", "(a)|(b)", "ab", "[$1|$2]", "[a|][|b]"},
    {"UnknownGroupIsEmpty", "(b)", "abc", "[$2]", "a[]c"},
    {"UnknownGroupTakesOneDigit", "(b)", "abc", "[$23]", "a[3]c"},
    {"AsManyDigitsAsTheHighestNumber", "(b)", "abc", "$12", "ab2c"},
    {"TwoDigits", tenGroups, "abcdefghij", "$10$1$02$100-$1a", "jabj0-aa"},
    {"UnknownGroupTakesTwoDigits", tenGroups, "abcdefghij", "[$11][$99][$110]", "[][][0]"},
    {"LeadingZero", "(b)", "abc", "$01", "ab1c"},
    {"LeadingZeroWithoutGroup", "b", "abc", "$01", "ab1c"},
    {"ManyDigits", "(b)", "abc", "$99999999999999999999", "a9999999999999999999c"},
    {"ZeroLength", "x*", "ab", "-", "-a-b-"},
    {"NonASCII", "😀", "a😀é", "[$0]", "a[😀]é"},
    {"GroupOutsideTheMatch", "a(?=(b))", "ab", "$1", "bb"},
};

INSTANTIATE_TEST_SUITE_P(Rows, RegularExpressionReplacement, testing::ValuesIn(replacementRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(RegularExpression, ReturnsNothingAboveTheSizeLimit) {
    const auto findings = search("[^x]+", std::string(1 << 20, 'a'));
    std::string replacement;
    for (int copies = 0; copies < 127; ++copies)
        replacement += "$0";
    EXPECT_EQ(RegularExpression::replacingMatches(findings, replacement)->size(), 127U << 20);
    EXPECT_FALSE(RegularExpression::replacingMatches(findings, replacement + "$0$0"));
}

} // namespace
} // namespace korvane
