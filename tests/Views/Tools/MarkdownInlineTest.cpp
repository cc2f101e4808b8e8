#include "Views/Tools/MarkdownInline.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

/// The runs of `text`, each in angle brackets after the letters of its styles (Bold, Italic, Struck, Code,
/// Link) and before its target.
std::string rendered(std::string_view text) {
    std::string result;
    for (const auto& run : renderInline(text)) {
        std::string styles;
        styles += run.isBold ? "B" : "";
        styles += run.isItalic ? "I" : "";
        styles += run.isStruck ? "S" : "";
        styles += run.isCode ? "C" : "";
        styles += run.target.empty() ? "" : "L";
        result += styles.empty() ? run.text : styles + "<" + run.text + ">";
        result += run.target.empty() ? "" : "(" + run.target + ")";
    }
    return result;
}

struct MarkdownInlineRow {
    std::string_view name;
    std::string_view text;
    std::string_view shown;
};

constexpr MarkdownInlineRow markdownInlineRows[] = {
    {"nothing", "", ""},
    {"plain", "a < b & c", "a < b & c"},
    {"bold", "**a** b __c__", "B<a> b B<c>"},
    {"italic", "*a* b _c_", "I<a> b I<c>"},
    {"struck", "~~a~~ ~b~", "S<a> ~b~"},
    {"code", "`a` b", "C<a> b"},
    {"a link", "see [a b](c d) e", "see L<a b>(c d) e"},

    {"bold in italic", "*a **b** c*", "I<a >BI<b>I< c>"},
    {"italic in bold", "**a *b* c**", "B<a >BI<b>B< c>"},
    {"italic in bold at its edges", "***a***", "BI<a>"},
    {"both kinds of delimiters", "**_a_** _**b**_", "BI<a> BI<b>"},
    {"everything", "~~**_[`a`](b)_**~~", "BISCL<a>(b)"},
    {"bold in a link", "[a **b**](c)", "L<a >(c)BL<b>(c)"},
    {"a link in bold", "**a [b](c)**", "B<a >BL<b>(c)"},
    {"links side by side", "[a](b)[c](d)", "L<a>(b)L<c>(d)"},
    {"links with one target side by side", "[a](c)[b](c)", "L<a>(c)L<b>(c)"},

    {"code is not styled further", "`**a** _b_ ~~c~~`", "C<**a** _b_ ~~c~~>"},
    {"a link in code", "`[a](b)`", "C<[a](b)>"},
    {"code in bold", "**a `b** c` d**", "B<a >BC<b** c>B< d>"},
    {"a bracket in code in a link", "[`a]`](b)", "CL<a]>(b)"},
    {"delimiters in a target", "[a](b_c_d**e**) f", "L<a>(b_c_d**e**) f"},
    {"a delimiter pair may contain code", "*a `*` b*", "I<a >IC<*>I< b>"},

    {"words with underscores", "snake_case_name", "snakeI<case>name"},
    {"an asterisk after an underscore opens nothing", "_*a* b", "_*a* b"},
    {"open delimiters", "**a *b `c ~~d [e](f", "**a *b `c ~~d [e](f"},
    {"empty delimiters", "** ~~ `` []() [a]() [](b)", "** ~~ `` []() [a]() [](b)"},
    {"four asterisks", "****", "****"},
    {"five asterisks", "*****", "B<*>"},
    {"an image is its link", "![a](b)", "!L<a>(b)"},
    {"emoji and marks", "**👩‍👩‍👧** *e\u0301*", "B<👩‍👩‍👧> I<e\u0301>"},
    {"bytes that are not UTF-8", "**\xFF** \xC2", "B<\xFF> \xC2"},
};

TEST(MarkdownInline, StylesTextBetweenDelimiters) {
    for (const auto& [name, text, shown] : markdownInlineRows)
        EXPECT_EQ(rendered(text), shown) << name;
}

/// Every character that is no delimiter is shown once and in order.
RC_GTEST_PROP(MarkdownInline, ShowsEveryCharacterThatIsNotADelimiter, ()) {
    const auto tokens = *rc::gen::container<std::vector<std::string>>(
        rc::gen::element<std::string>("*", "**", "_", "__", "~~", "`", "[", "]", "a", "ä", " "));
    std::string text;
    for (const auto& token : tokens)
        text += token;
    std::string shown;
    for (const auto& run : renderInline(text)) {
        RC_ASSERT(!run.text.empty());
        shown += run.text;
    }
    const auto letters = [](std::string_view all) {
        std::string kept;
        std::ranges::copy_if(all, std::back_inserter(kept),
                             [](char c) { return !std::string_view("*_~`[]").contains(c); });
        return kept;
    };
    RC_ASSERT(letters(shown) == letters(text));
}

TEST(MarkdownInline, FinishesInTimeOnHostileText) {
    for (const std::string_view piece : {"**", "**a", "*", "_*", "*a_b", "~~", "`", "`a", "[", "[a](",
                                         "[a](b", "[`]", "![", "__a**", "_a_", "a"}) {
        std::string text;
        while (text.size() < 1'000'000)
            text += piece;
        EXPECT_LE(renderInline(text).size(), text.size()) << piece;
    }
}

} // namespace
} // namespace korvane
