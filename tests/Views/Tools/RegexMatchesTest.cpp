#include "Views/Tools/RegexMatches.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

RegexMatches matchesOf(const std::string& pattern, const std::string& text) {
    auto findings = RegularExpression::search(pattern, true, std::make_shared<const std::string>(text),
                                              {.time = std::chrono::hours(1)});
    return {{.pattern = pattern, .text = text}, *std::move(findings)};
}

TEST(RegexMatches, HaveALineForEachMatchAndGroup) {
    const auto matches = matchesOf("(a)|(b)(c)|d", "abcd");
    std::vector<RegexMatchLine> lines;
    std::vector<std::string> headings;
    std::vector<std::string> names;
    for (std::size_t index = 0; index < matches.lineCount(); ++index) {
        lines.push_back(matches.line(index));
        headings.push_back(lines.back().heading());
        names.push_back(lines.back().name());
    }
    EXPECT_EQ(lines, (std::vector<RegexMatchLine>{
                         {0, {}, "a"}, {0, 0, "a"}, {1, {}, "bc"}, {1, 0, "b"}, {1, 1, "c"}, {2, {}, "d"}}));
    EXPECT_EQ(headings,
              (std::vector<std::string>{"Match 1", "Group 1", "Match 2", "Group 1", "Group 2", "Match 3"}));
    EXPECT_EQ(names, (std::vector<std::string>{"Match 1", "Match 1 Group 1", "Match 2", "Match 2 Group 1",
                                               "Match 2 Group 2", "Match 3"}));
}

TEST(RegexMatches, FindTheFirstLineOfEachMatch) {
    const auto matches = matchesOf("(a)|(b)(c)|d", "abcd");
    EXPECT_EQ(matches.firstLine(0), 0U);
    EXPECT_EQ(matches.firstLine(1), 2U);
    EXPECT_EQ(matches.firstLine(2), 5U);
    EXPECT_EQ(matches.firstLine(3), 6U);
}

TEST(RegexMatches, AreCreatedOnDemand) {
    const auto matches = matchesOf("(a)", std::string(100'000, 'a'));
    ASSERT_EQ(matches.size(), 100'000U);
    EXPECT_EQ(matches[99'999].range, (RegularExpression::TextRange{99'999, 100'000}));
    EXPECT_EQ(matches[99'999].groups, std::vector<std::string_view>{"a"});
    EXPECT_EQ(matches.line(199'999), (RegexMatchLine{99'999, 0, "a"}));
}

TEST(RegexMatches, AreEqualOnlyToTheirCopies) {
    const auto matches = matchesOf("a", "a");
    const auto copy = matches;
    EXPECT_EQ(copy, matches);
    EXPECT_NE(matches, matchesOf("a", "a"));
    EXPECT_EQ(RegexMatches(), RegexMatches());
}

TEST(RegexMatches, AreEmptyWithoutASearch) {
    const RegexMatches matches;
    EXPECT_TRUE(matches.empty());
    EXPECT_EQ(matches.lineCount(), 0U);
    EXPECT_EQ(matches.firstLine(0), 0U);
    EXPECT_EQ(matches.search(), nullptr);
    EXPECT_EQ(matches.findings(), nullptr);
}

} // namespace
} // namespace korvane
