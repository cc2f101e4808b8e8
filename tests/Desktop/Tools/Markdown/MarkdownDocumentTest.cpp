#include "Desktop/Tools/Markdown/MarkdownDocument.h"

#include "Views/Tools/MarkdownPreviewView.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <QFontInfo>
#include <QTextBlock>
#include <QTextLayout>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
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

TEST(MarkdownRow, TheLastOfATooLongTextSaysSo) {
    const std::string markdown = "# a\n- b\n- c\n- d\n\ne";
    EXPECT_EQ(markdownRows(markdown, {.rows = 5}), markdownRows(markdown));
    EXPECT_EQ(markdownRows(markdown, {.bytes = markdown.size()}), markdownRows(markdown));
    const auto expected = markdownRows("# a\n- b\n- c\n\n" + std::string(endOfPreview));
    EXPECT_EQ(markdownRows(markdown, {.rows = 3}), expected);
    EXPECT_EQ(markdownRows(markdown, {.bytes = 13}), expected);
    EXPECT_EQ(text(markdownRows(std::string(100, 'x'), {.bytes = 50}).front()), std::string(50, 'x'));
    EXPECT_EQ(markdownRows(markdown, {.rows = 0}), markdownRows(endOfPreview));
}

TEST(MarkdownRow, ChangesHaveWhatBothHave) {
    const auto change = [](std::string_view before, std::string_view after) {
        const auto result = changeOfRows(std::make_shared<const MarkdownRows>(markdownRows(before)),
                                         std::make_shared<const MarkdownRows>(markdownRows(after)));
        return std::pair(result.samePrefix, result.sameSuffix);
    };
    EXPECT_EQ(change("a\n\nb\n\nc\n\nd", "a\n\nb\n\nx\n\nd"), std::pair(2UZ, 1UZ));
    EXPECT_EQ(change("a\n\na", "a\n\na\n\na"), std::pair(2UZ, 0UZ));
    EXPECT_EQ(change("", "a"), std::pair(0UZ, 0UZ));
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

/// Whether the text of each block is that of its row.
bool hasTheTextsOfItsRows(const MarkdownDocument& document) {
    for (auto block = document.begin(); block != document.lastBlock(); block = block.next()) {
        const auto* row = document.row(block.blockNumber());
        if (!row || text(*row) != block.text().toStdString())
            return false;
    }
    return document.row(document.blockCount() - 1) == nullptr;
}

SharedMarkdownRows sharedRows(std::string_view markdown) {
    return std::make_shared<const MarkdownRows>(markdownRows(markdown));
}

RC_GTEST_PROP(MarkdownDocument, ResultDoesNotDependOnThePartsItIsFilledIn, ()) {
    const auto blocks = rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
        "# a\n", "- b\n", "- c\n", "1. d\n", "> e\n", "```\nf\n```\n", "---\n", "\ng **h**\n", "\ng\n"));
    MarkdownDocument document(nullptr);
    const auto edits = *rc::gen::inRange(1, 6);
    for (int edit = 0; edit < edits; ++edit) {
        std::string markdown;
        for (const auto& part : *blocks)
            markdown += part;
        document.lead(changeOfRows(document.rows(), sharedRows(markdown)));
        const auto steps = *rc::gen::inRange(0, 8);
        for (int step = 0; step < steps; ++step) {
            const bool wasFilled = document.isFilled();
            const auto count = document.blockCount();
            const auto done = document.fill(*rc::gen::inRange(1UZ, 800UZ), *rc::gen::inRange(0, count));
            RC_ASSERT(wasFilled == (done.removed == 0 && done.inserted == 0));
            RC_ASSERT(document.blockCount() - count ==
                      static_cast<int>(done.inserted) - static_cast<int>(done.removed));
            RC_ASSERT(hasTheTextsOfItsRows(document));
            if (*rc::gen::inRange(0, 6) == 0)
                document.applyTheme();
        }
    }
    while (!document.isFilled())
        document.fill(300);
    MarkdownDocument fresh(nullptr);
    fresh.lead({.rows = document.rows()});
    fresh.fill(MarkdownDocument::everything);
    RC_ASSERT(formattedLines(document) == formattedLines(fresh));
    RC_ASSERT(document.layout().top() == fresh.layout().top());
}

TEST(MarkdownDocument, KeepsFilledRowsWhenTheTextChanges) {
    std::string markdown;
    for (int i = 0; i < 1000; ++i)
        markdown += "- " + std::to_string(i) + "\n";
    MarkdownDocument document(nullptr);
    document.lead({.rows = sharedRows(markdown)});
    for (int edit = 0; edit < 100 && !document.isFilled(); ++edit) {
        document.fill(5000);
        markdown.insert(2, "x");
        document.lead(changeOfRows(document.rows(), sharedRows(markdown)));
    }
    while (!document.isFilled())
        document.fill(5000);
    EXPECT_LT(document.writtenRows(), 1200U) << "each edit changes one row";
    EXPECT_GT(document.writtenRows(), 1010U);
}

TEST(MarkdownDocument, RecreatesVisibleRowsFirstInANewTheme) {
    std::string markdown;
    for (int i = 0; i < 1000; ++i)
        markdown += "- " + std::to_string(i) + "\n";
    MarkdownDocument document(nullptr);
    document.show(markdown);
    document.applyTheme();
    EXPECT_EQ(document.fill(5000, 500).first, 500U);
    EXPECT_EQ(document.fill(5000, 500).first, 0U);
}

TEST(MarkdownDocument, WritesARowOnceInANewTheme) {
    std::string before;
    for (int i = 0; i < 50; ++i)
        before += "a\n\n";
    MarkdownDocument document(nullptr);
    document.show(before + "# c\n\nend");
    document.lead(changeOfRows(document.rows(), sharedRows("b\n\n# c\n\nend")));
    document.applyTheme();
    for (int row = 0; row < 3; ++row)
        document.fill(1);
    const auto last = document.blockCount() - 2;
    EXPECT_EQ(document.findBlockByNumber(last).text(), "end") << "outdated, and already written above";
    while (!document.isFilled())
        document.fill(1, last);
    EXPECT_EQ(document.toPlainText(), "b\nc\nend\n");
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
