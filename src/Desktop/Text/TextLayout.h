/// The layout of a text area's document: wrapped lines of one height for all fonts, laid out block by block
/// on demand. It neither paints nor scrolls.
#pragma once

#include <QFont>
#include <QPlainTextDocumentLayout>
#include <QTextLayout>
#include <QTextOption>

namespace korvane {

class TextLayout : public QPlainTextDocumentLayout {
public:
    explicit TextLayout(QTextDocument& document);

    /// The place of the lines, in pixels.
    struct Frame {
        qreal left = 0;   ///< from the view's edge to the lines
        qreal width = 0;  ///< of a line
        qreal bottom = 0; ///< below the last line
        int lineHeight = 1;
        bool operator==(const Frame&) const = default;
    };

    /// Blocks are laid out again on demand; until then they keep their numbers of lines, so the cost does not
    /// depend on the size of the document.
    void setFrame(const Frame& frame);

    const Frame& frame() const { return m_frame; }

    /// Applies to blocks that are laid out later.
    void setAlignment(Qt::Alignment alignment) { m_alignment = alignment; }

    /// Makes blocks without a space break at any character instead of between words, because the parts of a
    /// value are not words. Applies to blocks that are laid out later.
    void setBreaksValuesAnywhere() { m_breaksValuesAnywhere = true; }

    /// The number of rows of the document in lines of `width`.
    int rowCount(qreal width) const;

    /// Breaks `layout`, which does not belong to the document, into lines. Each line's natural rectangle ends
    /// where its row ends: when scrolling, the view takes the bottom of a line as the top of the next one.
    int layLines(QTextLayout& layout) const;

    /// The offset at which to draw a line of a block, which moves it from its own position to the baseline
    /// that all rows share.
    QPointF drawingOffset(const QTextLine& line) const;

    /// The distance from the top of a row to the baseline of the text, which is centred in the row.
    qreal baseline() const;

    QRectF blockBoundingRect(const QTextBlock& block) const override;
    QSizeF documentSize() const override;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    /// Lays out `block`; returns whether its number of lines has changed.
    bool layBlock(const QTextBlock& block) const;
    bool isLaidOut(const QTextBlock& block) const;
    void announceSize() const;

    QTextOption::WrapMode wrapMode(const QString& text) const; // for a block of this text
    int layLines(QTextLayout& layout, QTextOption::WrapMode mode, qreal width) const;

    Frame m_frame{};
    Qt::Alignment m_alignment = Qt::AlignLeft;
    bool m_breaksValuesAnywhere = false;
    int m_generation = 0; // a block's user state is the generation of its layout
    int m_blockCount = 1;
    mutable bool m_announcing = false;
    mutable int m_announcedRows = 0; // the number last reported to the scroll bar
};

} // namespace korvane
