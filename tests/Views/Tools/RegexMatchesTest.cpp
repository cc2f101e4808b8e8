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

TEST(RegexMatches, FindTheLineAtAnOffset) {
    const auto matches = matchesOf("(a)b|c|(?=x)", "-abc-x"); // lines at [1, 3), [1, 2), [3, 4) and [5, 5)
    const std::vector<std::optional<std::size_t>> expected{{}, 0, 0, 2, 2, 3, {}};
    for (std::size_t offset = 0; offset < expected.size(); ++offset)
        EXPECT_EQ(matches.lineAt(offset), expected[offset]) << offset;
    EXPECT_EQ(RegexMatches().lineAt(0), std::nullopt);
}

TEST(RegexMatches, AreMarkedInTurn) {
    const auto matches = matchesOf("(a)b|c", "-abcc");
    using Kind = TextMarkKind;
    EXPECT_EQ(matches.marks(),
              TextMarks({{1, 3, Kind::oddMatch}, {3, 4, Kind::evenMatch}, {4, 5, Kind::oddMatch}}));
    EXPECT_EQ(matches.marksOf(0), TextMarks({{1, 3, Kind::selectedMatch}, {1, 2, Kind::group1}}));
    EXPECT_EQ(matches.marksOf(1), TextMarks({{1, 2, Kind::selectedMatch}, {1, 2, Kind::group1}}))
        << "a group outlines itself";
    EXPECT_EQ(matches.marksOf(2), TextMarks({{3, 4, Kind::selectedMatch}}));
    EXPECT_TRUE(RegexMatches().marks().empty());
}

TEST(RegexMatches, UseTheColoursOfGroupsInTurn) {
    const auto marks = matchesOf("(a)(b)(c)(d)(e)", "abcde").marksOf(0).in(0, 5);
    ASSERT_EQ(marks.size(), 6U);
    EXPECT_EQ(marks[4].kind, TextMarkKind::group4);
    EXPECT_EQ(marks[5].kind, TextMarkKind::group1);
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
