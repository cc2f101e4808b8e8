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

const NaiveLine filler{};

TEST(DiffEngine, LaysLinesOut) {
    struct Row {
        std::string_view name;
        std::string_view left;
        std::string_view right;
        NaiveDiff expected;
    };

    const std::vector<Row> rows = {
        {"two empty texts", "", "", {{{1, "", ' '}}, {{1, "", ' '}}, {{1, "", ' '}}, 0, 0, 1}},
        {"one line replaced",
         "a",
         "b",
         {{{1, "a", '-'}, filler}, {filler, {1, "b", '+'}}, {{1, "a", '-'}, {1, "b", '+'}}, 1, 1, 0}},
        {"one line removed",
         "a\nb\nc",
         "a\nc",
         {{{1, "a", ' '}, {2, "b", '-'}, {3, "c", ' '}},
          {{1, "a", ' '}, filler, {2, "c", ' '}},
          {{1, "a", ' '}, {2, "b", '-'}, {3, "c", ' '}},
          0,
          1,
          2}},
        {"a line break appended",
         "a",
         "a\n",
         {{{1, "a", ' '}, filler}, {{1, "a", ' '}, {2, "", '+'}}, {{1, "a", ' '}, {2, "", '+'}}, 1, 0, 1}},
        {"a line break taken away",
         "a\n",
         "a",
         {{{1, "a", ' '}, {2, "", '-'}}, {{1, "a", ' '}, filler}, {{1, "a", ' '}, {2, "", '-'}}, 0, 1, 1}},
        {"CR LF against LF",
         "a\r\nb\r\n",
         "a\nb\n",
         {{{1, "a", ' '}, {2, "", '-'}, {3, "b", ' '}, {4, "", ' '}, {5, "", '-'}},
          {{1, "a", ' '}, filler, {2, "b", ' '}, {3, "", ' '}, filler},
          {{1, "a", ' '}, {2, "", '-'}, {3, "b", ' '}, {4, "", ' '}, {5, "", '-'}},
          0,
          2,
          3}},
        {"only the left text has something",
         "a",
         "",
         {{{1, "a", '-'}, filler}, {filler, {1, "", '+'}}, {{1, "a", '-'}, {1, "", '+'}}, 1, 1, 0}},
        {"identical",
         "x\ny\nz",
         "x\ny\nz",
         {{{1, "x", ' '}, {2, "y", ' '}, {3, "z", ' '}},
          {{1, "x", ' '}, {2, "y", ' '}, {3, "z", ' '}},
          {{1, "x", ' '}, {2, "y", ' '}, {3, "z", ' '}},
          0,
          0,
          3}},
        {"a stretch: all removals come before all additions",
         "=\n1\n2\n=",
         "=\n3\n4\n=",
         {{{1, "=", ' '}, {2, "1", '-'}, {3, "2", '-'}, filler, filler, {4, "=", ' '}},
          {{1, "=", ' '}, filler, filler, {2, "3", '+'}, {3, "4", '+'}, {4, "=", ' '}},
          {{1, "=", ' '}, {2, "1", '-'}, {3, "2", '-'}, {2, "3", '+'}, {3, "4", '+'}, {4, "=", ' '}},
          2,
          2,
          2}},
        {"a repeated line is matched where it occurs first",
         "a",
         "a\nb\na",
         {{{1, "a", ' '}, filler, filler},
          {{1, "a", ' '}, {2, "b", '+'}, {3, "a", '+'}},
          {{1, "a", ' '}, {2, "b", '+'}, {3, "a", '+'}},
          2,
          0,
          1}},
        {"case, spaces and spellings count",
         "A\ne\u0301",
         "a\n\u00e9",
         {{{1, "A", '-'}, {2, "e\u0301", '-'}, filler, filler},
          {filler, filler, {1, "a", '+'}, {2, "\u00e9", '+'}},
          {{1, "A", '-'}, {2, "e\u0301", '-'}, {1, "a", '+'}, {2, "\u00e9", '+'}},
          2,
          2,
          0}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(plain(compare(std::string(row.left), std::string(row.right))), row.expected) << row.name;
}

TEST(DiffEngine, AgreesWithTheTextbook) {
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

TEST(DiffEngine, KeepsEveryPropertyOnTheFuzzersSeeds) {
    int seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KORVANE_FUZZ_CORPUS "/DiffEngine")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string texts(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(support::brokenDiffEngineProperty(texts), "") << entry.path();
        ++seeds;
    }
    EXPECT_GT(seeds, 0);
}

TEST(DiffEngine, GivesEveryLineObjectAnIdentityOfItsOwn) {
    const auto result = compare("a\nb\nc", "a\nc\nd");
    std::set<UUID> identities;
    for (const auto* column : {&result.leftLines, &result.rightLines}) {
        for (const auto& line : *column)
            identities.insert(line.id);
    }
    EXPECT_EQ(identities.size(), result.leftLines.size() + result.rightLines.size());
    std::set<UUID> unified;
    for (const auto& line : result.unifiedDiff)
        unified.insert(line.id);
    EXPECT_EQ(unified.size(), result.unifiedDiff.size());
    EXPECT_NE(compare("a", "a").leftLines.front().id, result.leftLines.front().id);
}

TEST(DiffEngine, KeepsTheTextsForTheLines) {
    std::optional<DiffResult> first = compare(std::string(100, 'x'), std::string(100, 'y'));
    const auto copy = *first;
    first.reset();
    EXPECT_EQ(copy.leftLines[0].content, std::string(100, 'x'));
    EXPECT_EQ(copy.rightLines[1].content, std::string(100, 'y'));
}

TEST(DiffEngine, SumsItsCounts) {
    EXPECT_EQ((DiffStats{.added = 1, .removed = 2, .unchanged = 4}.total()), 7);
}

TEST(DiffEngine, GivesNothingOnceItIsStopped) {
    const auto stop = std::make_unique<std::stop_source>(); // as a local variable it is warned of
    EXPECT_TRUE(compare("a\nb", "b\na", stop->get_token()));
    stop->request_stop();
    EXPECT_FALSE(compare("a\nb", "b\na", stop->get_token()));
}

/// Whether every line of a column is the line of its text that its number names, in order and none left out.
bool tells(const std::vector<DiffLine>& column, const std::string& text) {
    std::string told;
    int number = 0;
    for (const auto& line : column) {
        if (!line.lineNumber)
            continue;
        if (*line.lineNumber != ++number)
            return false;
        told.append(number > 1 ? "\n" : "").append(line.content);
    }
    return told == text;
}

RC_GTEST_PROP(DiffEngine, ShowsBothTextsWhole, ()) {
    const auto line = rc::gen::elementOf(std::vector<std::string>{"", "a", "b", "long enough", "\u20ac"});
    const auto lines = rc::gen::nonEmpty(rc::gen::container<std::vector<std::string>>(line));
    const auto left = joined(*lines);
    const auto right = joined(*lines);
    const auto result = compare(left, right);
    RC_ASSERT(tells(result.leftLines, left));
    RC_ASSERT(tells(result.rightLines, right));
    RC_ASSERT(result.leftLines.size() == result.rightLines.size());
    RC_ASSERT(result.stats.total() == static_cast<int>(result.leftLines.size()));
    RC_ASSERT(result.unifiedDiff.size() == result.leftLines.size());
}

} // namespace
} // namespace korvane::DiffEngine
