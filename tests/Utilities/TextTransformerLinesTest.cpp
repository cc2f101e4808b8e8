#include "Utilities/TextTransformer.h"

#include "Utilities/Text/Lines.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

TEST(TextTransformerLines, OperationsHaveTheirNamesAndIconsInOrder) {
    const std::pair<std::string_view, std::string_view> names[] = {
        {"Reverse Lines", "arrow.up.arrow.down"},
        {"Sort A-Z", "arrow.up.doc"},
        {"Sort Z-A", "arrow.down.doc"},
        {"Remove Duplicates", "doc.on.doc"},
        {"Shuffle Lines", "shuffle"},
        {"Trim Whitespace", "scissors"},
        {"Remove Empty Lines", "trash"},
    };
    ASSERT_EQ(allCases<LineOperation>.size(), std::size(names));
    for (std::size_t i = 0; i < std::size(names); ++i) {
        const auto operation = allCases<LineOperation>[i];
        EXPECT_EQ(rawValue(operation), names[i].first);
        EXPECT_EQ(icon(operation), names[i].second);
        EXPECT_EQ(id(operation), names[i].first);
        EXPECT_EQ(fromRawValue<LineOperation>(names[i].first), operation);
    }
}

struct TextTransformerLinesRow {
    LineOperation operation;
    std::string_view text;
    std::string_view expected;
};

TEST(TextTransformerLines, AppliesOperations) {
    using enum LineOperation;
    const TextTransformerLinesRow rows[] = {
        {reverse, "a\nb\nc", "c\nb\na"},
        {reverse, "a\nb\n", "\nb\na"},
        {reverse, "a\r\nb", "b\n\na"}, // there is an empty line between CR and LF
        {reverse, "a\vb\fc\rd\u0085e\u2028f\u2029g", "g\nf\ne\nd\nc\nb\na"},
        {sortAZ, "b\nA\na", "A\na\nb"},
        {sortZA, "b\nA\na", "b\nA\na"},
        {sortAZ, "zebra\nÄpfel\nApril\nÉclair\n", "\nÄpfel\nApril\nÉclair\nzebra"},
        {sortZA, "a\nB\n\nb\nA", "B\nb\na\nA\n"},
        {removeDuplicates, "x\nX\nx\n\n", "x\nX\n"},
        {removeDuplicates, "\u00E9\ne\u0301\ne", "\u00E9\ne"},
        {removeDuplicates, "e\u0301\n\u00E9", "e\u0301"},
        {removeDuplicates, "x\nx \nx", "x\nx "},
        {removeDuplicates, "a\r\na\r\n", "a\n"},
        {trimLines, " a \n\t b\u00A0\u3000\n\u200Bc ", "a\nb\n\u200Bc"},
        {trimLines, " \n\t", "\n"},
        {removeEmpty, " a\n\n \t\u2003\n b \n", " a\n b "},
        {removeEmpty, "\n\n", ""},
        {removeEmpty, "a\r\nb\r\n", "a\nb"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TextTransformer::applyLineOperation(row.text, row.operation), row.expected)
            << rawValue(row.operation) << ": " << row.text;
}

TEST(TextTransformerLines, EmptyInputGivesEmptyOutput) {
    for (const auto operation : allCases<LineOperation>)
        EXPECT_EQ(TextTransformer::applyLineOperation("", operation), "") << rawValue(operation);
}

TEST(TextTransformerLines, ShufflingKeepsEveryLine) {
    std::string text;
    for (int line = 0; line < 1000; ++line)
        text += std::to_string(line % 700) + "\n";
    const auto shuffled = TextTransformer::applyLineOperation(text, LineOperation::shuffle);
    EXPECT_NE(shuffled, text); // equal by chance in fewer than one of 10^1000 runs
    auto before = linesOf(text);
    auto after = linesOf(shuffled);
    std::ranges::sort(before);
    std::ranges::sort(after);
    EXPECT_EQ(after, before);
}

/// Each of the six orders is equally frequent: a deviation of a quarter of the share would be more than ten
/// standard deviations.
TEST(TextTransformerLines, ShufflingDrawsEachOrderEquallyOften) {
    constexpr int draws = 12'000;
    constexpr int share = draws / 6;
    std::map<std::string, int> counts;
    for (int draw = 0; draw < draws; ++draw)
        ++counts[TextTransformer::applyLineOperation("a\nb\nc", LineOperation::shuffle)];
    EXPECT_EQ(counts.size(), 6U);
    for (const auto& [order, count] : counts)
        EXPECT_NEAR(count, share, 500) << order;
}

std::string someLines() {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(
        std::vector<std::string>{"a", "A", "b", "\n", "\n", "\r\n", " ", "\t", "é", "e\u0301", "漢"}));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    return text;
}

RC_GTEST_PROP(TextTransformerLines, ReversingTwiceGivesTheSameLines, ()) {
    const auto text = someLines();
    const auto once = TextTransformer::applyLineOperation(text, LineOperation::reverse);
    const auto twice = TextTransformer::applyLineOperation(once, LineOperation::reverse);
    RC_ASSERT(linesOf(twice) == linesOf(text));
}

RC_GTEST_PROP(TextTransformerLines, ApplyingThemAgainChangesNothing, ()) {
    for (const auto operation :
         {LineOperation::sortAZ, LineOperation::sortZA, LineOperation::removeDuplicates,
          LineOperation::trimLines, LineOperation::removeEmpty}) {
        const auto once = TextTransformer::applyLineOperation(someLines(), operation);
        RC_ASSERT(TextTransformer::applyLineOperation(once, operation) == once);
    }
}

} // namespace
} // namespace korvane
