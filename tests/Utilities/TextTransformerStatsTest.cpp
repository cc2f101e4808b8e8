#include "Utilities/TextTransformer.h"

#include "Utilities/Text/Characters.h"
#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace korvane {

void PrintTo(const TextStats& stats, std::ostream* stream) {
    *stream << "{" << stats.characters << ", " << stats.charactersNoSpaces << ", " << stats.words << ", "
            << stats.lines << ", " << stats.paragraphs << ", " << stats.sentences << "}";
}

namespace {

struct TextTransformerStatsRow {
    std::string_view text;
    TextStats stats;
};

TEST(TextTransformerStats, Counts) {
    const TextTransformerStatsRow rows[] = {
        {"", {0, 0, 0, 0, 0, 0}},
        {"Hello world", {11, 10, 2, 1, 1, 1}},
        {"Hi! Yes?!", {9, 8, 2, 1, 1, 2}},
        {"a\n\n\n\nb", {6, 2, 2, 5, 2, 1}},
        {"a\r\n\r\nb", {4, 2, 2, 5, 1, 1}},
        {"a\n\n\nb\n", {6, 2, 2, 5, 2, 1}},
        {"a\nb", {3, 2, 2, 2, 1, 1}},
        {"a\r\n\nb", {4, 2, 2, 4, 2, 1}},
        {" \t\u00A0\n\n\u2003", {6, 0, 0, 3, 0, 0}},
        {"...", {3, 3, 1, 1, 1, 1}},
        {". . ...", {7, 5, 3, 1, 1, 3}},
        {"no mark", {7, 6, 2, 1, 1, 1}},
        {"\n", {1, 0, 0, 2, 0, 0}},
        {"a\u2028b\u2029c\u0085d\ve\ff", {11, 6, 6, 6, 1, 1}},
        {"e\u0301 👨‍👩‍👧‍👦 🇳🇴🇸🇪 한국 नमस्ते", {13, 9, 5, 1, 1, 1}},
        {"a\u0301\u0301 \u0301b", {3, 2, 2, 1, 1, 1}}, // a space with a mark is still a space
        {"\u0600 x", {2, 2, 2, 1, 1, 1}},              // a space joined to a prefix is no space
        {"\u0600\nx", {3, 2, 2, 2, 1, 1}},
        {"3.14! Ünï. 漢字。", {14, 12, 3, 1, 1, 3}},
        {"a\u200Bb", {3, 3, 1, 1, 1, 1}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TextTransformer::getStats(row.text), row.stats) << row.text;
}

bool isSpace(char32_t character) {
    return isWhitespace(character) || isNewline(character);
}

/// How many of the pieces between the code points of which `delimits` is true satisfy `counts`.
std::int64_t piecesOf(std::string_view text, const std::function<bool(char32_t)>& delimits,
                      const std::function<bool(std::string_view)>& counts) {
    std::int64_t count = 0;
    std::size_t start = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const auto decoded = decodeAt(text, offset);
        if (delimits(decoded.character)) {
            count += counts(text.substr(start, offset - start)) ? 1 : 0;
            start = decoded.end;
        }
        offset = decoded.end;
    }
    return count + (counts(text.substr(start)) ? 1 : 0);
}

/// Each count by its definition.
TextStats naiveStats(std::string_view text) {
    if (text.empty())
        return {};
    TextStats stats;
    Characters characters(text);
    for (auto character = characters.next(); !character.empty(); character = characters.next()) {
        ++stats.characters;
        if (!isSpace(decodeAt(character, 0).character))
            ++stats.charactersNoSpaces;
    }
    stats.words = piecesOf(text, isSpace, [](std::string_view piece) { return !piece.empty(); });
    stats.lines = piecesOf(text, isNewline, [](std::string_view) { return true; });
    std::string rest(text);
    while (true) {
        const auto end = rest.find("\n\n");
        if (!trimmingWhitespacesAndNewlines(std::string_view(rest).substr(0, end)).empty())
            ++stats.paragraphs;
        if (end == std::string::npos)
            break;
        rest.erase(0, end + 2);
    }
    const auto isMark = [](char character) { return std::string_view(".!?").contains(character); };
    for (std::size_t i = 0; i < text.size(); ++i)
        stats.sentences += isMark(text[i]) && (i == 0 || !isMark(text[i - 1])) ? 1 : 0;
    if (stats.sentences == 0 && stats.words > 0)
        stats.sentences = 1;
    return stats;
}

std::string anyText() {
    const auto pieces =
        *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(std::vector<std::string>{
            "a", "b", " ",  " ",      "\n",     "\n",     "\r",     "\r\n", "\t",      ".",      "!",
            "?", "é", "漢", "\u0301", "\u200D", "👩",     "👍",     "🏽",   "🇳",       "\u0600", "가",
            "ᆨ", "क", "्",   "\u00A0", "\u2003", "\u2028", "\u0085", "\xff", "\xe6\xbc"}));
    std::string text;
    for (const auto& piece : pieces)
        text += piece;
    return text;
}

RC_GTEST_PROP(TextTransformerStats, AgreeWithEachDefinition, ()) {
    const auto text = anyText();
    RC_ASSERT(TextTransformer::getStats(text) == naiveStats(text));
}

TEST(TextTransformerStats, UpdateAsATextIsTypedAndDeleted) {
    TextTransformer::RunningStats running;
    EXPECT_EQ(running.stats(), TextStats());
    std::string before; // what was typed
    for (const char character : std::string_view("Hi there. \r\n\n\nYes?! \xcc\x81x. . \n")) {
        const auto text = before + character;
        running.update(text);
        EXPECT_EQ(running.stats(), TextTransformer::getStats(text)) << text;
        before = text;
    }
    while (!before.empty()) {
        const auto text = before.substr(1);
        running.update(text);
        EXPECT_EQ(running.stats(), TextTransformer::getStats(text)) << text;
        before = text;
    }
}

RC_GTEST_PROP(TextTransformerStats, UpdateAfterAnyChange, ()) {
    auto text = anyText();
    TextTransformer::RunningStats running;
    running.update(text);
    for (int change = 0; change < 5; ++change) {
        const auto start = *rc::gen::inRange<std::size_t>(0, text.size() + 1);
        const auto length = *rc::gen::inRange<std::size_t>(0, text.size() - start + 1);
        text.replace(start, length, anyText());
        running.update(text);
        RC_ASSERT(running.stats() == TextTransformer::getStats(text));
    }
}

RC_GTEST_PROP(TextTransformerStats, UpdateAfterASmallChangeOfALongText, ()) {
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += anyText();
    TextTransformer::RunningStats running;
    running.update(text);
    for (int change = 0; change < 10; ++change) {
        const auto start = *rc::gen::inRange<std::size_t>(0, text.size() + 1);
        const auto length =
            *rc::gen::inRange<std::size_t>(0, std::min<std::size_t>(text.size() - start, 4) + 1);
        text.replace(start, length, anyText().substr(0, 8));
        running.update(text);
        RC_ASSERT(running.stats() == TextTransformer::getStats(text));
    }
}

TEST(TextTransformerStats, ALongTextIsCountedOnlyNearAChange) {
    TextTransformer::RunningStats running;
    Rope text = std::string(1'000'000, 'a');
    EXPECT_EQ(running.changeSize(text), 1'000'000U);
    running.update(text);
    EXPECT_EQ(running.changeSize(text), 0U);
    const auto edited = text.replacing(500'000, 500'000, " b ");
    EXPECT_EQ(running.changeSize(edited), 3U);
    running.update(edited);
    EXPECT_EQ(running.stats().words, 3);
    EXPECT_EQ(running.stats().characters, 1'000'003);
    EXPECT_EQ(running.changeSize(text), 3U);
    EXPECT_EQ(running.changeSize("abc"), 3U) << "it is rather counted anew";
    running.update("abc");
    EXPECT_EQ(running.stats(), TextTransformer::getStats("abc"));
}

TEST(TextTransformerStats, CountLinesWithCarriageReturnsToo) {
    TextTransformer::RunningStats running;
    EXPECT_EQ(running.linesByPairs(), 0);
    Rope text = "a\r\nb\n\rc\r\n";
    running.update(text);
    EXPECT_EQ(running.stats().lines, 7);
    EXPECT_EQ(running.linesByPairs(), 5);
    text = text.replacing(2, 2, "x"); // between CR and LF
    running.update(text);
    EXPECT_EQ(running.stats().lines, 7);
    EXPECT_EQ(running.linesByPairs(), 6);
    running.update({});
    EXPECT_EQ(running.linesByPairs(), 0);
}

} // namespace
} // namespace korvane
