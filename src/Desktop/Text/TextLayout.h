/// The layout of a text area's document: wrapped lines of one height whatever fonts they need, laid out block
/// by block when they are first looked at. It does not paint and knows nothing of scrolling.
#pragma once

#include <QFont>
#include <QPlainTextDocumentLayout>
#include <QTextLayout>
#include <QTextOption>

namespace korvane {

class TextLayout : public QPlainTextDocumentLayout {
public:
    explicit TextLayout(QTextDocument& document);

    /// Where the lines go, in pixels.
    struct Frame {
        qreal left = 0;   ///< from the view's edge to the lines
        qreal width = 0;  ///< of a line
        qreal bottom = 0; ///< below the last line
        int lineHeight = 1;
        bool operator==(const Frame&) const = default;
    };

    /// Blocks are laid out anew when they are next looked at; until then they keep their numbers of lines, so
    /// the cost does not depend on the size of the document.
    void setFrame(const Frame& frame);

    const Frame& frame() const { return m_frame; }

    /// For blocks that are laid out from now on.
    void setAlignment(Qt::Alignment alignment) { m_alignment = alignment; }

    /// Has blocks without a space break at any character, where others break between words: no part of a
    /// value belongs more closely together than another. For blocks that are laid out from now on.
    void setBreaksValuesAnywhere() { m_breaksValuesAnywhere = true; }

    /// How many rows the document would have in lines of `width`.
    int rowCount(qreal width) const;

    /// Breaks `layout`, which is none of the document's, into lines. Each line's natural rectangle ends where
    /// its row ends: the view takes the bottom of a line for the top of the next one when it scrolls.
    int layLines(QTextLayout& layout) const;

    /// Where to draw a line of a block: at the distance from its own position that puts it on the baseline
    /// which all rows share.
    QPointF drawingOffset(const QTextLine& line) const;

    /// From the top of a row to the baseline of the text, which is centred in the row.
    qreal baseline() const;

    QRectF blockBoundingRect(const QTextBlock& block) const override;
    QSizeF documentSize() const override;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    /// Lays `block` out; tells whether its number of lines has changed.
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
    mutable int m_announcedRows = 0; // as the scroll bar knows them
};

} // namespace korvane
