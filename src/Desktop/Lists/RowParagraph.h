/// A short text in a row, on as many lines as it needs at its width: it may be broken anywhere, as a value
/// without words is. A long text belongs on one line, which costs only what is seen of it; see `RowText.h`.
#pragma once

#include "Desktop/Lists/RowText.h"

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QTextLayout>

#include <cstddef>
#include <string_view>

class QPainter;

namespace korvane {

class RowParagraph {
public:
    /// The text must outlive it.
    RowParagraph(std::string_view text, const QFont& font, double width, int lineHeight);

    int height() const;

    /// The place in the text, in bytes, that is nearest to `position`.
    std::size_t offsetAt(QPointF position) const;

    /// Where the caret is before the byte at `offset`.
    QRectF caret(std::size_t offset) const;

    /// Draws the text, its selected part on the selection's colour.
    void draw(QPainter& painter, QPointF corner, const QColor& color, const RowTextRange& selected) const;

private:
    std::string_view m_text;
    int m_lineHeight;
    QTextLayout m_layout;
};

} // namespace korvane
