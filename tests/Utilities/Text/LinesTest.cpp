#include "Utilities/Text/Lines.h"

#include "Utilities/Text/Text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>

namespace korvane {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(Lines, AreSeparatedByEveryNewlineCharacter) {
    struct Row {
        std::string_view name;
        std::string_view text;
        Pieces expected;
    };

    const std::vector<Row> rows = {
        {"the empty text", "", {""}},
        {"one line", "a", {"a"}},
        {"LF", "a\nb", {"a", "b"}},
        {"LF at the end", "a\n", {"a", ""}},
        {"only LF", "\n\n", {"", "", ""}},
        {"CR LF leaves an empty line", "a\r\nb", {"a", "", "b"}},
        {"CR", "a\rb", {"a", "b"}},
        {"VT and FF", "a\vb\fc", {"a", "b", "c"}},
        {"NEL", "a\u0085b", {"a", "b"}},
        {"LS and PS", "a\u2028b\u2029c", {"a", "b", "c"}},
        {"tab, NUL and their neighbours are no newlines",
         std::string_view("\t\0\x0e\x1c\x1e\x1f\u0084\u0086", 10),
         {std::string_view("\t\0\x0e\x1c\x1e\x1f\u0084\u0086", 10)}},
        {"neighbours of LS and PS are no newlines", "a\u2027b\u202Ac", {"a\u2027b\u202Ac"}},
        {"a long line of ASCII",
         "0123456789abcdef0123456789abcdef\nx",
         {"0123456789abcdef0123456789abcdef", "x"}},
        {"after eight bytes", "01234567\n", {"01234567", ""}},
        {"a cut NEL at the end", "a\xc2", {"a\xc2"}},
        {"a cut LS before a newline", "a\xe2\x80\nb", {"a\xe2\x80", "b"}},
        {"bytes that are not UTF-8", "\xff\n\x85\n\xa8", {"\xff", "\x85", "\xa8"}},
        {"an overlong newline",
         "a\xc0\x8a"
         "b",
         {"a\xc0\x8a"
          "b"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(linesOf(row.text), row.expected) << row.name;
}

RC_GTEST_PROP(Lines, AreThePartsBetweenNewlines, ()) {
    const auto element = rc::gen::elementOf(
        std::vector<std::string>{"\n", "\r", "\v", "\f", "\u0085", "\u2028", "\u2029", "\t", "a", "bcdefgh",
                                 "\u00e9", "\u20ac", "\U0001F600", "\xff", "\xe2", "\xc2"});
    std::string text;
    for (const auto& part : *rc::gen::container<std::vector<std::string>>(element))
        text += part;
    const auto lines = linesOf(text);
    RC_ASSERT(lines.size() == lineCount(text));
    std::size_t rest = text.size();
    for (const auto line : lines) {
        RC_ASSERT(lineCount(line) == 1);
        rest -= line.size();
    }
    const auto newlineBytes = rest;
    RC_ASSERT(newlineBytes >= lines.size() - 1);
    RC_ASSERT(newlineBytes <= 3 * (lines.size() - 1));
    RC_ASSERT(lines.front().data() == text.data());
    RC_ASSERT(lines.back().data() + lines.back().size() == text.data() + text.size());
}

} // namespace
} // namespace korvane
