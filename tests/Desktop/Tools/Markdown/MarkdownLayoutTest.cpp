#include "Desktop/Tools/Markdown/MarkdownLayout.h"
#include "Desktop/Tools/Markdown/MarkdownDocument.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>

#include <cmath>
#include <string>
#include <vector>

namespace korvane {
namespace {

constexpr int width = 300;

std::string items(int count) {
    std::string markdown;
    for (int i = 0; i < count; ++i)
        markdown += "- item " + std::to_string(i) + "\n";
    return markdown;
}

int laidOutBlocks(const QTextDocument& document) {
    int count = 0;
    for (auto block = document.begin(); block.isValid(); block = block.next())
        count += block.layout()->lineCount() > 0 ? 1 : 0;
    return count;
}

/// The place of a line, and what is on it.
struct Line {
    QPointF place{};
    qreal textWidth = 0;
    int start = 0;

    /// Qt rounds to 64ths of a pixel.
    bool operator==(const Line& other) const {
        constexpr qreal precision = 1.0 / 32;
        return (place - other.place).manhattanLength() < precision &&
               std::abs(textWidth - other.textWidth) < precision && start == other.start;
    }
};

std::vector<Line> linesOf(const QTextDocument& document, qreal top) {
    std::vector<Line> lines;
    for (auto block = document.begin(); block.isValid(); block = block.next()) {
        const auto origin = document.documentLayout()->blockBoundingRect(block).topLeft();
        for (int i = 0; i < block.layout()->lineCount(); ++i) {
            const auto line = block.layout()->lineAt(i);
            lines.push_back({QPointF(0, origin.y() - top) + line.position() +
                                 QPointF(line.naturalTextRect().left() - line.x() + origin.x(), 0),
                             line.naturalTextWidth(), line.textStart()});
        }
    }
    return lines;
}

/// Copies the text and its formats into `copy`, which keeps its own layout.
void copyInto(QTextDocument& copy, const QTextDocument& document) {
    copy.setDefaultFont(document.defaultFont());
    copy.setDefaultTextOption(document.defaultTextOption());
    copy.setDocumentMargin(document.documentMargin());
    QTextCursor cursor(&copy);
    for (auto block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin())
            cursor.insertBlock();
        cursor.setBlockFormat(block.blockFormat());
        cursor.setBlockCharFormat(block.charFormat());
        for (auto it = block.begin(); !it.atEnd(); ++it)
            cursor.insertText(it.fragment().text(), it.fragment().charFormat());
    }
    copy.setPageSize(document.pageSize());
}

RC_GTEST_PROP(MarkdownLayout, PlacesLinesLikeTheLayoutOfQt, ()) {
    const auto blocks = rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
        "# a\n", "### b\n", "- c\n", "12. d\n", "> e\n",
        "> a longer quote that takes several lines in the view\n", "```c\nf\n```\n", "```\n\tg\n\nh\n```\n",
        "---\n", "\n`i` **j** [k](l) and words up to the second line\n", "\n\u05d0\u05d1 `m` \u05d2\n",
        "\n\u6f22\u5b57\n"));
    std::string markdown;
    for (const auto& part : *blocks)
        markdown += part;
    MarkdownDocument document(nullptr);
    document.setPageSize({width, -1});
    document.show(markdown);
    QTextDocument plain;
    copyInto(plain, document);
    const auto top = document.layout().top();
    const auto plainTop = plain.documentMargin();
    RC_ASSERT(linesOf(document, top) == linesOf(plain, plainTop));
    RC_ASSERT(document.layout().documentSize().height() - top ==
              plain.documentLayout()->documentSize().height() - plainTop);
}

TEST(MarkdownLayout, LaysOutOnlyWhatIsAskedFor) {
    MarkdownDocument document(nullptr);
    document.setPageSize({width, -1});
    document.show(items(10'000));
    EXPECT_EQ(laidOutBlocks(document), 0);
    auto& layout = document.layout();
    layout.layOutBetween(50'000, 50'500);
    EXPECT_GT(laidOutBlocks(document), 10);
    EXPECT_LT(laidOutBlocks(document), 50);
    const auto block = layout.blockAt(50'250);
    EXPECT_GT(block.layout()->lineCount(), 0);
    EXPECT_LE(layout.startOf(block), 50'250);
    EXPECT_GT(layout.startOf(block.next()), 50'250);
}

TEST(MarkdownLayout, FreesTheLinesOfManyCharacters) {
    MarkdownDocument document(nullptr);
    document.setPageSize({width, -1});
    document.show(std::string(600'000, 'x'));
    auto& layout = document.layout();
    layout.layOutBetween(0, 100);
    layout.freeLines();
    EXPECT_EQ(laidOutBlocks(document), 1);
    layout.layOutBetween(0, 1'000'000);
    EXPECT_GT(laidOutBlocks(document), 100);
    document.show("y\n\ny\n\ny\n\ny\n\n" + std::string(600'000, 'x'));
    layout.freeLines();
    EXPECT_LE(laidOutBlocks(document), 1) << "numbers of blocks change by the new rows";
}

TEST(MarkdownLayout, MeasuresTheHeightsThatItHasEstimated) {
    std::string markdown;
    for (int i = 0; i < 100; ++i)
        markdown += "narrow iiiiiiiiiiiiiiii and WWWWWWWWW WWWWWWWWWWWWW WWWWWWWWWWW WWWWWWWWWWW wide\n\n";
    MarkdownDocument document(nullptr);
    document.setPageSize({width, -1});
    document.show(markdown);
    MarkdownDocument measured(nullptr);
    measured.setPageSize({width, -1});
    measured.show(markdown);
    measured.layout().layOutBetween(0, 1'000'000);
    EXPECT_NE(document.layout().documentSize(), measured.layout().documentSize());
    int slices = 1;
    while (document.layout().measureSome(1000))
        ++slices;
    EXPECT_GT(slices, 5);
    EXPECT_EQ(document.layout().documentSize(), measured.layout().documentSize());
    EXPECT_EQ(laidOutBlocks(document), 0);
}

TEST(MarkdownLayout, HitsTheCharactersAndNothingBesideThem) {
    MarkdownDocument document(nullptr);
    document.setPageSize({width, -1});
    document.show("one\n\ntwo");
    const auto& layout = document.layout();
    const auto second = layout.blockBoundingRect(document.findBlockByNumber(1));
    EXPECT_EQ(layout.hitTest(second.topLeft() + QPointF(1, 5), Qt::ExactHit), 4);
    EXPECT_EQ(layout.hitTest(second.topLeft() + QPointF(200, 5), Qt::ExactHit), -1);
    EXPECT_EQ(layout.hitTest(second.topLeft() - QPointF(0, 5), Qt::ExactHit), -1);
    EXPECT_EQ(layout.hitTest(second.topLeft() + QPointF(200, 5), Qt::FuzzyHit), 7);
    EXPECT_EQ(layout.hitTest({0, -10}, Qt::FuzzyHit), 0);
    EXPECT_EQ(layout.hitTest({0, 10'000}, Qt::FuzzyHit), 8);
}

} // namespace
} // namespace korvane
