#include "Utilities/Text/TextSummary.h"

#include "Utilities/Text/UTF16Text.h"
#include "support/CodePoints.h"
#include "support/RopePrinter.h"
#include "support/RopeProperties.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

using namespace std::string_view_literals;

struct SummaryRow {
    std::string_view name;
    std::string_view text;
    std::size_t newlines;
    std::size_t utf16Units;
    std::size_t illFormed;
};

constexpr SummaryRow summaryRows[] = {
    {"nothing", "", 0, 0, 0},
    {"ASCII", "ab\0c"sv, 0, 4, 0},
    {"CR LF is two newlines", "a\r\nb", 2, 4, 0},
    {"all ASCII newlines and their neighbours", "\t\n\v\f\r\x0E", 4, 6, 0},
    {"NEL, LS and PS", "\u0085\u2028\u2029", 3, 3, 0},
    {"neighbours of NEL, LS and PS", "\u0084\u0086\u2027\u202A\u20A8\u30A8", 0, 6, 0},
    {"forms of two, three and four bytes", "é€😀", 0, 4, 0},
    {"the smallest and largest of each form", "\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF", 0, 8, 0},
    {"around the surrogates", "\uD7FF\uE000", 0, 2, 0},
    {"U+FFFD itself", "\uFFFD", 0, 1, 0},
    {"U+FFFD beside an ill-formed byte", "\uFFFD\xFF", 0, 2, 1},
    {"a lone trail byte", "a\x80", 0, 2, 1},
    {"a form cut short by ASCII is one", "\xE2\x82z", 0, 2, 1},
    {"a form cut short by the end is one", "a\xF0\x9F\x98", 0, 2, 1},
    {"a form of two bytes cut short by the end", "\xC2", 0, 1, 1},
    {"a form cut short by another", "\xF0\x9F\xF0\x9F\x98\x80", 0, 3, 1},
    {"a trail byte too many", "\xC3\xA9\xA9", 0, 2, 1},
    {"overlong forms", "\xC0\x80\xE0\x9F\xBF\xF0\x8F\xBF\xBF", 0, 9, 9},
    {"a surrogate", "\xED\xA0\x80", 0, 3, 3},
    {"above U+10FFFF", "\xF4\x90\x80\x80\xF5\x80", 0, 6, 6},
    {"bytes that never occur", "\xFE\xFF\xC1", 0, 3, 3},
    {"an overlong newline is none", "\xE0\x82\x85", 0, 3, 3},
};

TEST(TextSummary, CountsEachTable) {
    for (const auto& row : summaryRows) {
        const TextSummary expected{row.text.size(), row.newlines, row.utf16Units, row.illFormed};
        EXPECT_EQ(summaryOf(row.text), expected) << row.name;
    }
}

TEST(TextSummary, CountsTheSameAroundTheEndOfABlock) {
    for (const auto& row : summaryRows) {
        const TextSummary expected{row.text.size(), row.newlines, row.utf16Units, row.illFormed};
        for (std::size_t before = 120; before < 136; ++before) {
            for (const std::string_view pad : {"a", "\n", "\u2028"}) {
                std::string text;
                while (text.size() < before)
                    text += pad;
                const auto newlines = pad == "a" ? 0 : text.size() / pad.size();
                const TextSummary padding{text.size(), newlines, text.size() / pad.size(), 0};
                text += row.text;
                EXPECT_EQ(summaryOf(text), padding + expected) << row.name << " after " << before;
            }
        }
    }
}

TEST(TextSummary, CountsManyNewlinesAndUnits) {
    for (const auto count : std::vector<std::size_t>{127, 128, 129, 255, 256, 257, 1'000}) {
        std::string newlines(count, '\n');
        EXPECT_EQ(summaryOf(newlines), (TextSummary{count, count, count, 0}));
        newlines += "\u0085";
        EXPECT_EQ(summaryOf(newlines), (TextSummary{count + 2, count + 1, count + 1, 0}));
        std::string emoji;
        for (std::size_t index = 0; index < count; ++index)
            emoji += "😀";
        EXPECT_EQ(summaryOf(emoji), (TextSummary{4 * count, 0, 2 * count, 0}));
        EXPECT_EQ(summaryOf(std::string(count, '\xF0')), (TextSummary{count, 0, count, count}));
    }
}

TEST(TextSummary, AgreesWithTheDecoderForEveryCodePoint) {
    std::string all;
    forEachCodePoint([&](UChar32, const std::string& character) {
        ASSERT_EQ(summaryOf(character), support::naiveSummaries(character).back()) << character;
        all += character;
    });
    EXPECT_EQ(summaryOf(all), support::naiveSummaries(all).back());
}

/// All sequences of three bytes that a lead byte begins, before a trail byte.
TEST(TextSummary, AgreesWithTheDecoderForEveryStartOfAForm) {
    for (int first = 0xC0; first < 0x100; ++first) {
        for (int second = 0x70; second < 0xD0; ++second) {
            for (const int third : {0x00, 0x7F, 0x80, 0x85, 0xA8, 0xBF, 0xC0, 0xE2}) {
                const std::string text{static_cast<char>(first), static_cast<char>(second),
                                       static_cast<char>(third), '\x80'};
                ASSERT_EQ(summaryOf(text), support::naiveSummaries(text).back()) << first << " " << second;
            }
        }
    }
}

rc::Gen<std::string> hostileText() {
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
                            "a", "\r\n", "é", "\u0085", "\u2028", "😀", "\x80", "\xE2", "\xE2\x80",
                            "\xF0\x9F", "\xED\xA0", "\xC0", "plain words of ASCII that fill a block")),
                        [](const std::vector<std::string>& pieces) {
                            std::string text;
                            for (const auto& piece : pieces)
                                text += piece;
                            return text;
                        });
}

RC_GTEST_PROP(TextSummary, CountsTheUnitsOfTheUTF16Text, ()) {
    const auto text = *hostileText();
    RC_ASSERT(summaryOf(text).utf16Units == static_cast<std::size_t>(UTF16Text(text).units().length()));
    RC_ASSERT(summaryOf(text) == support::naiveSummaries(text).back());
}

RC_GTEST_PROP(TextSummary, FindsTheStartOfEachCharacter, ()) {
    const auto text = *hostileText();
    const auto summaries = support::naiveSummaries(text);
    for (std::size_t offset = 0; offset <= text.size(); ++offset) {
        const auto start = support::naiveSeekLast(summaries, &TextSummary::bytes, offset).bytes;
        RC_ASSERT(characterStart(text, offset) == start);
    }
}

} // namespace
} // namespace korvane
