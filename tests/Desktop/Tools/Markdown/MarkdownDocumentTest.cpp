#include "Desktop/Tools/Markdown/MarkdownDocument.h"

#include "Views/Tools/MarkdownPreviewView.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <QFontInfo>
#include <QTextBlock>
#include <QTextLayout>

#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

using Kind = MarkdownRow::Kind;

std::vector<Kind> kinds(std::string_view markdown) {
    std::vector<Kind> all;
    for (const auto& row : markdownRows(markdown))
        all.push_back(row.kind);
    return all;
}

std::string text(const MarkdownRow& row) {
    std::string all;
    for (const auto& run : row.runs)
        all += run.text;
    return all;
}

/// A part of a block with one format.
struct Part {
    QString text{};
    QTextCharFormat format{};
    bool operator==(const Part&) const = default;
};

struct Line {
    QTextBlockFormat format{};
    std::vector<Part> parts{};
    bool operator==(const Line&) const = default;
};

/// Each block's format, and the texts and formats of its parts.
std::vector<Line> formattedLines(const QTextDocument& document) {
    std::vector<Line> lines;
    for (auto block = document.begin(); block.isValid(); block = block.next()) {
        lines.push_back({block.blockFormat(), {}});
        for (auto it = block.begin(); !it.atEnd(); ++it)
            lines.back().parts.push_back({it.fragment().text(), it.fragment().charFormat()});
    }
    return lines;
}

TEST(MarkdownRow, IsABlockOrAPartOfOne) {
    EXPECT_EQ(
        kinds(MarkdownPreviewView::sampleDocument),
        (std::vector<Kind>{Kind::header,        Kind::paragraph,     Kind::header,        Kind::unorderedItem,
                           Kind::unorderedItem, Kind::unorderedItem, Kind::header,        Kind::paragraph,
                           Kind::language,      Kind::code,          Kind::code,          Kind::code,
                           Kind::header,        Kind::unorderedItem, Kind::unorderedItem, Kind::unorderedItem,
                           Kind::header,        Kind::paragraph,     Kind::quote,         Kind::quote,
                           Kind::rule,          Kind::orderedItem,   Kind::orderedItem,   Kind::orderedItem,
                           Kind::paragraph}));
    EXPECT_EQ(kinds(""), std::vector<Kind>());
    EXPECT_EQ(kinds("```\n```"), std::vector<Kind>{Kind::code}) << "an empty code block has a row";
}

TEST(MarkdownRow, HasItsNumberAndItsPlaceInTheBlock) {
    const auto rows = markdownRows("# a\n```c\nd\n```\n1. e\n2. f");
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0], (MarkdownRow{.kind = Kind::header,
                                    .number = 1,
                                    .runs = {{.text = "a"}},
                                    .beginsBlock = true,
                                    .endsBlock = true}));
    EXPECT_EQ(
        rows[1],
        (MarkdownRow{
            .kind = Kind::language, .runs = {{.text = "c"}}, .above = Kind::header, .beginsBlock = true}));
    EXPECT_EQ(rows[2],
              (MarkdownRow{
                  .kind = Kind::code, .runs = {{.text = "d"}}, .above = Kind::language, .endsBlock = true}));
    EXPECT_EQ(rows[4], (MarkdownRow{.kind = Kind::orderedItem,
                                    .number = 2,
                                    .digits = 1,
                                    .runs = {{.text = "f"}},
                                    .above = Kind::orderedItem,
                                    .endsBlock = true}));
}

TEST(MarkdownRow, AppliesInlineStylesExceptInHeadersAndCode) {
    EXPECT_EQ(text(markdownRows("# **a**").front()), "**a**");
    EXPECT_EQ(text(markdownRows("```\n**a**").front()), "**a**");
    EXPECT_EQ(text(markdownRows("**a**").front()), "a");
    EXPECT_EQ(text(markdownRows("- **a**").front()), "a");
    EXPECT_EQ(text(markdownRows("1. **a**").front()), "a");
    EXPECT_EQ(text(markdownRows("> **a**").front()), "a");
}

TEST(MarkdownRow, ALongTextIsDividedIntoSeveralRows) {
    const std::string word = "lengthy ";
    std::string paragraph = "**";
    while (paragraph.size() < 3 * maxRowBytes)
        paragraph += word;
    paragraph += "end**";
    std::string all;
    for (const auto& row : markdownRows(paragraph)) {
        EXPECT_LE(text(row).size(), maxRowBytes);
        EXPECT_EQ(row.continuesText, !all.empty());
        EXPECT_TRUE(row.runs.front().isBold);
        EXPECT_TRUE(text(row).ends_with(' ') || text(row).ends_with("end")) << "cut inside a word";
        all += text(row);
    }
    EXPECT_EQ("**" + all + "**", paragraph);
}

TEST(MarkdownRow, DividesNoCharacter) {
    std::string paragraph = "x";
    while (paragraph.size() < 3 * maxRowBytes)
        paragraph += "😀";
    std::string all;
    for (const auto& row : markdownRows(paragraph)) {
        EXPECT_NE(text(row).front() & 0xC0, 0x80);
        all += text(row);
    }
    EXPECT_EQ(all, paragraph);
    EXPECT_GT(markdownRows(std::string(3 * maxRowBytes, '\x80')).size(), 2U) << "bytes that are not UTF-8";
}

TEST(MarkdownDocument, WritesOnlyChangedRows) {
    std::string markdown;
    for (int i = 0; i < 1000; ++i)
        markdown += "Paragraph " + std::to_string(i) + ".\n\n";
    MarkdownDocument document(nullptr);
    document.show(markdown);
    EXPECT_EQ(document.writtenRows(), 1000U);
    document.show(markdown);
    EXPECT_EQ(document.writtenRows(), 1000U);
    markdown.insert(markdown.find("500") + 3, "x");
    document.show(markdown);
    EXPECT_EQ(document.writtenRows(), 1001U);
    EXPECT_EQ(document.findBlockByNumber(500).text(), "Paragraph 500x.");
    markdown.insert(0, "first\n\n");
    document.show(markdown);
    EXPECT_EQ(document.writtenRows(), 1003U) << "the new row, and the former first row";
}

TEST(MarkdownDocument, WritesOnlyTheChangedLineOfCode) {
    std::string markdown = "```\n";
    for (int i = 0; i < 1000; ++i)
        markdown += "line " + std::to_string(i) + ";\n";
    MarkdownDocument document(nullptr);
    document.show(markdown);
    const auto before = document.writtenRows();
    markdown.insert(markdown.find("500") + 3, "x");
    document.show(markdown);
    EXPECT_EQ(document.writtenRows(), before + 1);
}

RC_GTEST_PROP(MarkdownDocument, ResultDoesNotDependOnEarlierTexts, ()) {
    const auto tokens = rc::gen::container<std::vector<std::string>>(
        rc::gen::element<std::string>("\n", "\n\n", "# a", "## b\n", "- c\n", "1. d\n", "> e\n", "```\n",
                                      "```f\n", "---\n", "g", " **h** ", "`i`", "[j](k)"));
    MarkdownDocument document(nullptr);
    for (int edit = 0; edit < 5; ++edit) {
        std::string markdown;
        for (const auto& part : *tokens)
            markdown += part;
        document.show(markdown);
        MarkdownDocument fresh(nullptr);
        fresh.show(markdown);
        RC_ASSERT(formattedLines(document) == formattedLines(fresh));
        RC_ASSERT(document.layout().top() == fresh.layout().top());
    }
}

TEST(MarkdownDocument, HasABlockForEachRowWithAnyCharacters) {
    for (const std::string& markdown :
         {std::string("a\uFDD0b\uFDD1c\uFFFCd"), std::string("a\0b", 3), std::string("\xFF\xC2"),
          std::string("a\u00ADb\u200B\u202E"), std::string("```\na\uFDD0\n```"), std::string("# \uFDD1")}) {
        MarkdownDocument document(nullptr);
        document.show(markdown);
        EXPECT_EQ(document.blockCount(), static_cast<int>(markdownRows(markdown).size()) + 1) << markdown;
    }
}

TEST(MarkdownDocument, HeaderFontsShrinkWithTheLevel) {
    for (int level = 2; level <= 6; ++level)
        EXPECT_LT(headerFont(level).pixelSize(), headerFont(level - 1).pixelSize()) << level;
}

TEST(MarkdownDocument, StylesItsRuns) {
    MarkdownDocument document(nullptr);
    document.show("a **b** *c* ~~d~~ `e` [f](g)");
    std::vector<QTextCharFormat> formats;
    const auto block = document.firstBlock();
    const auto formatOf = [&](QChar letter) {
        const auto at = static_cast<int>(block.text().indexOf(letter));
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().contains(at))
                return it.fragment().charFormat();
        }
        return QTextCharFormat();
    };
    EXPECT_EQ(block.text(), "a b c d e f");
    EXPECT_EQ(formatOf('b').fontWeight(), QFont::Bold);
    EXPECT_NE(formatOf('a').fontWeight(), QFont::Bold);
    EXPECT_TRUE(formatOf('c').fontItalic());
    EXPECT_TRUE(formatOf('d').fontStrikeOut());
    EXPECT_TRUE(isInlineCode(formatOf('e')));
    EXPECT_FALSE(isInlineCode(formatOf('f')));
    EXPECT_EQ(formatOf('f').anchorHref(), "g");
    EXPECT_FALSE(formatOf('e').isAnchor());
}

} // namespace
} // namespace korvane
