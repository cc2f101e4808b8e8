#include "Utilities/Markdown/MarkdownPatterns.h"

#include "support/MarkdownReference.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace korvane::MarkdownPatterns {

// NOLINTNEXTLINE(misc-use-internal-linkage): found by the test library
void PrintTo(const Match& match, std::ostream* stream) {
    for (const auto& [start, end] : {match.whole, match.first, match.second})
        *stream << start << ".." << end << ' ';
}

namespace {

/// A pattern, its hand-written matcher, and the pieces of which every short combination is tried.
struct Pattern {
    std::string pattern;
    std::function<std::vector<Match>(std::string_view)> matches;
    std::vector<std::string> alphabet;
    std::size_t maxLength;
};

template <typename Make>
auto by(Make make) {
    return [make](std::string_view text) { return matchesOf(make(text)); };
}

const std::vector<Pattern>& patterns() {
    static const std::vector<Pattern> all = {
        {R"(```(\w*)\n([\s\S]*?)```)",
         by([](auto text) { return FencedCode(text); }),
         {"```", "`", "\n", "a", " "},
         6},
        {"`([^`]+)`", by([](auto text) { return InlineCode(text); }), {"`", "a", "\n"}, 8},
        {R"((?m)^#\s+(.+)$)", by([](auto text) { return Header(text, 1); }), {"#", " ", "\n", "\r", "a"}, 6},
        {R"((?m)^#\s+(.+)$)",
         by([](auto text) { return Header(text, 1); }),
         {"#", "\u0085", "\u2028", "\u00A0", "\v"},
         5},
        {R"((?m)^##\s+(.+)$)", by([](auto text) { return Header(text, 2); }), {"##", "#", " ", "\n", "a"}, 6},
        {"(?m)^([-*_]){3,}$",
         by([](auto text) { return HorizontalRule(text); }),
         {"-", "*", "_", "\n", "\r", " "},
         6},
        {R"(\*\*(.+?)\*\*)",
         by([](auto text) { return DoubleDelimited(text, "**"); }),
         {"*", "a", "\n", "ä"},
         7},
        {"__(.+?)__",
         by([](auto text) { return DoubleDelimited(text, "__"); }),
         {"_", "a", "\r", "\u2028"},
         7},
        {"~~(.+?)~~",
         by([](auto text) { return DoubleDelimited(text, "~~"); }),
         {"~", "a", "\n", "\u0085"},
         7},
        {R"((?<!\*)\*(?!\*)(.+?)(?<!\*)\*(?!\*))",
         by([](auto text) { return SingleDelimited(text, '*'); }),
         {"*", "a", "\n", "\u2029"},
         8},
        {"(?<!_)_(?!_)(.+?)(?<!_)_(?!_)",
         by([](auto text) { return SingleDelimited(text, '_'); }),
         {"_", "a", "\n"},
         9},
        {R"(!\[([^\]]*)]\(([^)]+)\))",
         by([](auto text) { return Link(text, Link::Kind::image); }),
         {"![", "[", "](", "]", ")", "a"},
         6},
        {R"(\[([^\]]+)\]\(([^)]+)\))",
         by([](auto text) { return Link(text); }),
         {"[", "](", "]", "(", ")", "a"},
         6},
        {"(?m)  $", by([](auto text) { return LineEndSpaces(text); }), {" ", "\n", "\r", "a", "\u2028"}, 6},
        {R"(\*\*(.+?)\*\*|__(.+?)__)",
         by([](auto text) { return Either(DoubleDelimited(text, "**"), DoubleDelimited(text, "__")); }),
         {"*", "_", "a", "\n"},
         8},
        {R"((?<![*_])\*(?![*])(.+?)(?<![*])\*(?![*])|(?<![*_])_(?![_])(.+?)(?<![_])_(?![_]))",
         by([](auto text) {
             return Either(SingleDelimited(text, '*', "_"), SingleDelimited(text, '_', "*"));
         }),
         {"*", "_", "a", "\n"},
         8},
    };
    return all;
}

/// Calls `check` with every text of up to `maxLength` pieces of the alphabet.
void forEveryText(const std::vector<std::string>& alphabet, std::size_t maxLength, const std::string& text,
                  const std::function<void(const std::string&)>& check) {
    check(text);
    if (maxLength == 0)
        return;
    for (const auto& letter : alphabet)
        forEveryText(alphabet, maxLength - 1, text + letter, check);
}

TEST(MarkdownPatterns, MatchWhatICUMatchesInEveryShortText) {
    for (const auto& [pattern, matches, alphabet, maxLength] : patterns()) {
        std::size_t found = 0;
        forEveryText(alphabet, maxLength, {}, [&](const std::string& text) {
            const auto expected = matchesOfICU(pattern, text);
            found += expected.size();
            ASSERT_EQ(matches(text), expected) << pattern << " in " << testing::PrintToString(text);
        });
        EXPECT_GT(found, 0U) << pattern;
    }
}

RC_GTEST_PROP(MarkdownPatterns, MatchWhatICUMatchesInAnyText, ()) {
    const auto texts = *rc::gen::container<std::vector<std::string>>(10, markdownText());
    for (const auto& text : texts) {
        for (const auto& [pattern, matches, alphabet, maxLength] : patterns())
            RC_ASSERT(matches(text) == matchesOfICU(pattern, text));
    }
}

RC_GTEST_PROP(MarkdownPatterns, FindMarkersOfOrderedItemsAsICUDoes, ()) {
    const auto texts = *rc::gen::container<std::vector<std::string>>(10, markdownText());
    for (const auto& text : texts) {
        const auto expected = matchesOfICU(R"(^\d+\.\s)", text);
        const auto end = endOfOrderedMarker(text);
        RC_ASSERT(end.has_value() == !expected.empty());
        if (end)
            RC_ASSERT(*end == expected.front().whole.end);
    }
}

TEST(MarkdownPatterns, FindMarkersOfOrderedItemsInAnyScript) {
    EXPECT_EQ(endOfOrderedMarker("1. a"), 3U);
    EXPECT_EQ(endOfOrderedMarker("123.\u3000a"), 7U);
    EXPECT_EQ(endOfOrderedMarker("\u0663. a"), 4U) << "digits of any script";
    EXPECT_EQ(endOfOrderedMarker("1.  a"), 3U) << "one white space only";
    EXPECT_EQ(endOfOrderedMarker("1.a"), std::nullopt);
    EXPECT_EQ(endOfOrderedMarker("1."), std::nullopt);
    EXPECT_EQ(endOfOrderedMarker(" 1. a"), std::nullopt);
    EXPECT_EQ(endOfOrderedMarker("²."), std::nullopt);
}

/// Bytes that are not UTF-8 are neither dropped nor overrun.
TEST(MarkdownPatterns, MatchWithinTheTextWhereItIsNotUTF8) {
    for (const std::string& text :
         {std::string("**\xC2**"), std::string("# \xE2\x80"), std::string("#\x85"), std::string("\xE2"),
          std::string("*\xFF*\xC2"), std::string("```\xC2\n```")}) {
        for (const auto& [pattern, matches, alphabet, maxLength] : patterns()) {
            for (const auto& match : matches(text))
                EXPECT_LE(match.whole.end, text.size()) << pattern;
        }
    }
    EXPECT_EQ(matchesOf(DoubleDelimited("**\xC2**", "**")), (std::vector<Match>{{{0, 5}, {2, 3}, {}}}));
}

} // namespace
} // namespace korvane::MarkdownPatterns
