#include "Utilities/Diff/DiffEngine.h"

#include "support/DiffEngineProperties.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <set>

namespace korvane::DiffEngine {
namespace {

using support::NaiveDiff;
using support::NaiveLine;
using support::plain;

std::string joined(const std::vector<std::string>& lines) {
    std::string text = lines.front();
    for (std::size_t line = 1; line < lines.size(); ++line)
        text += "\n" + lines[line];
    return text;
}

/// The result whose unified lines are `rows`, each after its mark: " same", "-removed" or "+added".
NaiveDiff diffOf(const std::vector<std::string_view>& rows) {
    NaiveDiff diff;
    int left = 0;
    int right = 0;
    for (const auto row : rows) {
        const auto mark = row.front();
        const std::string content(row.substr(1));
        diff.left.push_back(mark == '+' ? NaiveLine() : NaiveLine{++left, content, mark});
        diff.right.push_back(mark == '-' ? NaiveLine() : NaiveLine{++right, content, mark});
        diff.unified.push_back(mark == '+' ? diff.right.back() : diff.left.back());
        ++(mark == '+' ? diff.added : mark == '-' ? diff.removed : diff.unchanged);
    }
    return diff;
}

TEST(DiffEngine, LaysOutBothColumnsAndTheUnifiedDiff) {
    struct Row {
        std::string_view name;
        std::string_view left;
        std::string_view right;
        std::vector<std::string_view> expected;
    };

    const std::vector<Row> rows = {
        {"two empty texts", "", "", {" "}},
        {"one line replaced", "a", "b", {"-a", "+b"}},
        {"one line removed", "a\nb\nc", "a\nc", {" a", "-b", " c"}},
        {"a line break appended", "a", "a\n", {" a", "+"}},
        {"a line break removed", "a\n", "a", {" a", "-"}},
        {"CR LF against LF", "a\r\nb\r\n", "a\nb\n", {" a", "-", " b", " ", "-"}},
        {"an empty right text", "a", "", {"-a", "+"}},
        {"identical", "x\ny\nz", "x\ny\nz", {" x", " y", " z"}},
        {"removals before additions", "=\n1\n2\n=", "=\n3\n4\n=", {" =", "-1", "-2", "+3", "+4", " ="}},
        {"a repeated line matches its first occurrence", "a", "a\nb\na", {" a", "+b", "+a"}},
        {"case and Unicode normalisation count",
         "A\ne\u0301",
         "a\n\u00e9",
         {"-A", "-e\u0301", "+a", "+\u00e9"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(plain(compare(std::string(row.left), std::string(row.right))), diffOf(row.expected))
            << row.name;
}

TEST(DiffEngine, AgreesWithTheTextbookAlgorithm) {
    std::mt19937 random(7);
    const auto randomLines = [&](std::size_t alphabet) {
        std::vector<std::string> lines(1 + random() % 30);
        for (auto& line : lines)
            line = std::string(random() % 3, ' ') + static_cast<char>('a' + random() % alphabet);
        return lines;
    };
    for (int pair = 0; pair < 20'000; ++pair) {
        const auto alphabet = 1 + random() % (pair % 2 == 0 ? 3 : 20);
        const auto left = randomLines(alphabet);
        const auto right = randomLines(alphabet);
        ASSERT_EQ(plain(compare(joined(left), joined(right))), support::naiveDiff(left, right))
            << joined(left) << "\n and\n"
            << joined(right);
    }
}

TEST(DiffEngine, HoldsEveryPropertyOnTheFuzzSeeds) {
    int seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KORVANE_FUZZ_CORPUS "/DiffEngine")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string texts(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(support::brokenDiffEngineProperty(texts), "") << entry.path();
        ++seeds;
    }
    EXPECT_GT(seeds, 0);
}

TEST(DiffEngine, GivesEveryLineAUniqueIdentifier) {
    const auto result = compare("a\nb\nc", "a\nc\nd");
    std::set<UUID> identifiers;
    for (const auto* column : {&result.leftLines, &result.rightLines}) {
        for (const auto& line : *column)
            identifiers.insert(line.id);
    }
    EXPECT_EQ(identifiers.size(), result.leftLines.size() + result.rightLines.size());
    std::set<UUID> unified;
    for (const auto& line : result.unifiedDiff)
        unified.insert(line.id);
    EXPECT_EQ(unified.size(), result.unifiedDiff.size());
    EXPECT_NE(compare("a", "a").leftLines.front().id, result.leftLines.front().id);
}

TEST(DiffEngine, ACopyOfTheResultKeepsTheTexts) {
    std::optional<DiffResult> first = compare(std::string(100, 'x'), std::string(100, 'y'));
    const auto copy = *first;
    first.reset();
    EXPECT_EQ(copy.leftLines[0].content, std::string(100, 'x'));
    EXPECT_EQ(copy.rightLines[1].content, std::string(100, 'y'));
}

TEST(DiffEngine, TotalIsTheSumOfTheCounts) {
    EXPECT_EQ((DiffStats{.added = 1, .removed = 2, .unchanged = 4}.total()), 7);
}

TEST(DiffEngine, ReturnsNothingOnceStopped) {
    const auto stop = std::make_unique<std::stop_source>(); // a local variable causes a warning
    EXPECT_TRUE(compare("a\nb", "b\na", stop->get_token()));
    stop->request_stop();
    EXPECT_FALSE(compare("a\nb", "b\na", stop->get_token()));
}

/// Whether the numbered lines of a column are all lines of `text`, in order.
bool showsAllLines(const std::vector<DiffLine>& column, const std::string& text) {
    std::string shown;
    int number = 0;
    for (const auto& line : column) {
        if (!line.lineNumber)
            continue;
        if (*line.lineNumber != ++number)
            return false;
        shown.append(number > 1 ? "\n" : "").append(line.content);
    }
    return shown == text;
}

RC_GTEST_PROP(DiffEngine, ShowsEveryLineOfBothTexts, ()) {
    const auto line = rc::gen::elementOf(std::vector<std::string>{"", "a", "b", "long enough", "\u20ac"});
    const auto lines = rc::gen::nonEmpty(rc::gen::container<std::vector<std::string>>(line));
    const auto left = joined(*lines);
    const auto right = joined(*lines);
    const auto result = compare(left, right);
    RC_ASSERT(showsAllLines(result.leftLines, left));
    RC_ASSERT(showsAllLines(result.rightLines, right));
    RC_ASSERT(result.leftLines.size() == result.rightLines.size());
    RC_ASSERT(result.stats.total() == static_cast<int>(result.leftLines.size()));
    RC_ASSERT(result.unifiedDiff.size() == result.leftLines.size());
}

} // namespace
} // namespace korvane::DiffEngine
