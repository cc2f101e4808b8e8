/// Places the rows of a Markdown preview, one text block each, below each other. Lays out only the blocks
/// that are asked for; the heights of others are estimated, so no operation takes longer in a longer
/// document.
#pragma once

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>

#include <vector>

namespace korvane {

/// All distances are pixels. A block's lines have the fixed height of its format, so its own height is a
/// whole number of pixels; `QTextBlock::lineCount` holds it, as documents find and sum it in O(log n).
/// `QTextBlock::userState` tells whether it is measured. Indents, page breaks, floats and tables are not
/// supported.
class MarkdownLayout final : public QAbstractTextDocumentLayout {
public:
    explicit MarkdownLayout(QTextDocument* document);

    /// The distance of the first block from the top.
    void setTop(int top);

    int top() const { return m_top; }

    /// The distance of all blocks from the sides and the end: the margin of the document.
    void setMargin(int margin);

    /// Where the space of the block begins, which extends to that of the next one and begins with the
    /// distance from the block before. O(log n).
    qreal startOf(const QTextBlock& block) const;

    /// The block whose space contains `y`, or the nearest one. O(log n).
    QTextBlock blockAt(qreal y) const;

    /// Lays out the blocks between `top` and `bottom` that are not, from top to bottom. Returns whether a
    /// height has changed.
    bool layOutBetween(qreal top, qreal bottom);

    /// Measures blocks that have only an estimate, with `budget` characters or a little more in all.
    /// Returns whether any may remain.
    bool measureSome(int budget);

    /// Frees the lines that were laid out if they are many. They are laid out again when they are asked for.
    void freeLines();

    /// Tells the view that the size of the document may have changed.
    void reportSize();

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;

    int pageCount() const override { return 1; }

    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;

    /// The lines of the block, which are laid out if they are not: from the top of the first line, without
    /// margins.
    QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    bool isMeasured(const QTextBlock& block) const { return block.userState() == m_generation; }

    void moveLaidOut(int first, int added);
    void estimate(QTextBlock block);
    bool layOut(QTextBlock block) const;
    bool ensureLines(const QTextBlock& block) const;
    QRectF linesOf(const QTextBlock& block) const;
    qreal textWidth(const QTextBlockFormat& format) const;

    mutable std::vector<int> m_laidOut{}; // the numbers of the blocks that have lines, and maybe of others
    mutable qsizetype m_laidOutCharacters = 0;
    QSizeF m_reportedSize{};
    int m_top = 0;
    bool m_changesMargin = false;
    int m_blockCount = 1;
    int m_generation = 0;       // of the width and the fonts
    int m_nextToMeasure = 0;    // the number of a block; those before it are measured
    qreal m_characterWidth = 1; // an average, for estimates
};

} // namespace korvane
