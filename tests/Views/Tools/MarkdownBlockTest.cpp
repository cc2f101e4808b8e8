#include "Views/Tools/MarkdownBlock.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace korvane {

namespace MarkdownBlocks {

template <typename Items>
void printItems(const Items& items, std::ostream* stream) {
    for (const auto& item : items)
        *stream << ' ' << testing::PrintToString(item);
}

void PrintTo(const Header& block, std::ostream* stream) {
    *stream << "header " << block.level << ' ' << testing::PrintToString(block.text);
}

void PrintTo(const Paragraph& block, std::ostream* stream) {
    *stream << "paragraph " << testing::PrintToString(block.text);
}

void PrintTo(const CodeBlock& block, std::ostream* stream) {
    *stream << "code in " << testing::PrintToString(block.language) << ' '
            << testing::PrintToString(block.code);
}

void PrintTo(const Blockquote& block, std::ostream* stream) {
    *stream << "quote " << testing::PrintToString(block.text);
}

void PrintTo(const UnorderedList& block, std::ostream* stream) {
    *stream << "unordered";
    printItems(block.items, stream);
}

void PrintTo(const OrderedList& block, std::ostream* stream) {
    *stream << "ordered";
    printItems(block.items, stream);
}

void PrintTo(const HorizontalRule&, std::ostream* stream) {
    *stream << "rule";
}

} // namespace MarkdownBlocks

namespace {

using namespace MarkdownBlocks;
using Blocks = std::vector<MarkdownBlock>;

struct MarkdownBlockRow {
    std::string_view name;
    std::string_view markdown;
    Blocks blocks;
};

const std::vector<MarkdownBlockRow>& markdownBlockRows() {
    static const std::vector<MarkdownBlockRow> all = {
        {"nothing", "", {}},
        {"blank lines", "\n \n\t\n", {}},

        {"a header", "# Title", {Header{1, "Title"}}},
        {"the lowest header", "###### Title", {Header{6, "Title"}}},
        {"seven number signs", "####### Title", {Paragraph{"####### Title"}}},
        {"a header is trimmed", " \t##\t Title  # ", {Header{2, "Title  #"}}},
        {"a sign alone", "#", {Paragraph{"#"}}},
        {"a sign before a word", "#tag", {Paragraph{"#tag"}}},
        {"a header in the middle of text", "a\n# b\nc", {Paragraph{"a"}, Header{1, "b"}, Paragraph{"c"}}},

        {"lines of a paragraph", "a\n  b\t\nc", {Paragraph{"a b c"}}},
        {"paragraphs", "a\n\n\nb", {Paragraph{"a"}, Paragraph{"b"}}},
        {"a sign before a word in a paragraph", "a\n#b", {Paragraph{"a #b"}}},
        {"a paragraph ends where code begins", "a\n```\nb\n```", {Paragraph{"a"}, CodeBlock{"", "b"}}},
        {"a paragraph ends where a quote begins", "a\n> b", {Paragraph{"a"}, Blockquote{"b"}}},
        {"a paragraph ends where a list begins", "a\n- b", {Paragraph{"a"}, UnorderedList{{"b"}}}},
        {"a paragraph ends where a numbered list begins", "a\n1. b", {Paragraph{"a"}, OrderedList{{"b"}}}},
        {"a rule does not end a paragraph", "a\n---\nb", {Paragraph{"a --- b"}}},

        {"code", "```c\nint i;\n\n  i;\n```\na", {CodeBlock{"c", "int i;\n\n  i;"}, Paragraph{"a"}}},
        {"code without an end", "```\na\n\n# b", {CodeBlock{"", "a\n\n# b"}}},
        {"only a fence", "```", {CodeBlock{"", ""}}},
        {"empty code", "```c\n```", {CodeBlock{"c", ""}}},
        {"a blank line in code", "```\n\n```", {CodeBlock{"", ""}}},
        {"two blank lines in code", "```\n\n\n```", {CodeBlock{"", "\n"}}},
        {"an indented fence ends code", "  ```c d\n\ta \n ```e", {CodeBlock{"c d", "\ta "}}},
        {"code in code", "````\n```\n", {CodeBlock{"`", ""}}},

        {"rules",
         "---\n***\n___\n-*_-",
         {HorizontalRule{}, HorizontalRule{}, HorizontalRule{}, HorizontalRule{}}},
        {"a rule between spaces", "  ---  ", {HorizontalRule{}}},
        {"three asterisks are a rule", "***", {HorizontalRule{}}},
        {"an asterisk and a text are an item", "* a", {UnorderedList{{"a"}}}},
        {"asterisks with spaces between them are an item", "* * *", {UnorderedList{{"* *"}}}},
        {"two hyphens", "--", {Paragraph{"--"}}},

        {"a quote", "> a\n  > b", {Blockquote{"a\nb"}}},
        {"a sign alone ends a quote", "> a\n>\n> b", {Blockquote{"a"}, Paragraph{">"}, Blockquote{"b"}}},
        {"a sign without a space", ">a", {Paragraph{">a"}}},
        {"a quote is not parsed", "> # a\n> - b", {Blockquote{"# a\n- b"}}},

        {"items of all markers", "- a\n* b\n+ c", {UnorderedList{{"a", "b", "c"}}}},
        {"indented items", "- a\n  - b", {UnorderedList{{"a", "b"}}}},
        {"a blank line separates lists", "- a\n\n- b", {UnorderedList{{"a"}}, UnorderedList{{"b"}}}},
        {"text ends a list", "- a\nb", {UnorderedList{{"a"}}, Paragraph{"b"}}},
        {"a rule ends a list",
         "- a\n---\n- b",
         {UnorderedList{{"a"}}, HorizontalRule{}, UnorderedList{{"b"}}}},
        {"a marker alone", "-", {Paragraph{"-"}}},

        {"numbered items", "1. a\n1. b\n300.\tc", {OrderedList{{"a", "b", "c"}}}},
        {"numbers of other scripts", "\u0663. a", {OrderedList{{"a"}}}},
        {"a blank line separates numbered lists", "1. a\n\n2. b", {OrderedList{{"a"}}, OrderedList{{"b"}}}},
        {"one kind of list after the other", "1. a\n- b", {OrderedList{{"a"}}, UnorderedList{{"b"}}}},
        {"more white space after the number", "1.   a", {OrderedList{{"a"}}}},
        {"a number alone", "1.", {Paragraph{"1."}}},
        {"a number before a word", "1.5 a", {Paragraph{"1.5 a"}}},

        {"CR LF", "- a\r\n- b\r\n\r\nc\r\nd", {UnorderedList{{"a", "b"}}, Paragraph{"c d"}}},
        {"code with CR LF", "```\r\na\r\nb\r\n```", {CodeBlock{"", "a\nb"}}},
        {"other newlines",
         "# a\u2028# b\r# c\u0085# d\v# e",
         {Header{1, "a"}, Header{1, "b"}, Header{1, "c"}, Header{1, "d"}, Header{1, "e"}}},
        {"other white space", "\u00A0#\u3000a\u2003", {Header{1, "a"}}},
        {"bytes that are not UTF-8", "# \xFF\n\xC2", {Header{1, "\xFF"}, Paragraph{"\xC2"}}},
    };
    return all;
}

TEST(MarkdownBlock, ParsesEveryBlock) {
    for (const auto& [name, markdown, blocks] : markdownBlockRows())
        EXPECT_EQ(parseBlocks(markdown), blocks) << name;
}

std::string textOf(const MarkdownBlock& block) {
    struct Visitor {
        std::string operator()(const Header& header) const { return header.text; }

        std::string operator()(const Paragraph& paragraph) const { return paragraph.text; }

        std::string operator()(const CodeBlock& code) const { return code.language + code.code; }

        std::string operator()(const Blockquote& quote) const { return quote.text; }

        std::string operator()(const UnorderedList& list) const { return all(list.items); }

        std::string operator()(const OrderedList& list) const { return all(list.items); }

        std::string operator()(const HorizontalRule&) const { return {}; }

        static std::string all(const std::vector<std::string>& items) {
            std::string text;
            for (const auto& item : items)
                text += item;
            return text;
        }
    };

    return std::visit(Visitor{}, block);
}

/// No text is lost, whatever surrounds it. (Text after a closing fence is lost, so the tokens have no fence.)
RC_GTEST_PROP(MarkdownBlock, KeepsEveryWord, ()) {
    const auto tokens = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
        "\n", "\n", " ", "# ", "- ", "1. ", "> ", "---", "a", "b", "\r\n", "\t"));
    std::string markdown;
    for (const auto& token : tokens)
        markdown += token;
    const auto words = [](std::string_view text) {
        std::string letters;
        std::ranges::copy_if(text, std::back_inserter(letters), [](char c) { return c == 'a' || c == 'b'; });
        return letters;
    };
    std::string shown;
    for (const auto& block : parseBlocks(markdown))
        shown += textOf(block);
    RC_ASSERT(words(shown) == words(markdown));
}

TEST(MarkdownBlock, FinishesInTimeOnHostileText) {
    for (const std::string_view piece : {"- a\n", "```\n", "# \n", "> ", "#", "-", "1", "\n", "a\r", " "}) {
        std::string text;
        while (text.size() < 1'000'000)
            text += piece;
        EXPECT_LE(parseBlocks(text).size(), text.size()) << piece;
    }
}

} // namespace
} // namespace korvane
