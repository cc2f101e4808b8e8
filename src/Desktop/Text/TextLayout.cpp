#include "Desktop/Text/TextLayout.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace korvane {

TextLayout::TextLayout(QTextDocument& document) : QPlainTextDocumentLayout(&document) {}

void TextLayout::setFrame(const Frame& frame) {
    if (frame == m_frame)
        return;
    m_frame = frame;
    ++m_generation;
    emit update();
}

int TextLayout::rowCount(qreal width) const {
    int rows = 0;
    for (auto block = document()->begin(); block.isValid(); block = block.next()) {
        QTextLayout layout(block.text(), document()->defaultFont());
        rows += layLines(layout, wrapMode(block.text()), width);
    }
    return rows;
}

int TextLayout::layLines(QTextLayout& layout) const {
    return layLines(layout, wrapMode(layout.text()), m_frame.width);
}

QTextOption::WrapMode TextLayout::wrapMode(const QString& text) const {
    const bool isValue = m_breaksValuesAnywhere &&
                         std::ranges::none_of(text, [](QChar character) { return character.isSpace(); });
    return isValue ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere;
}

int TextLayout::layLines(QTextLayout& layout, QTextOption::WrapMode mode, qreal width) const {
    QTextOption option(m_alignment);
    option.setWrapMode(mode);
    layout.setTextOption(option);
    int rows = 0;
    layout.beginLayout();
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const auto height = line.naturalTextRect().height(); // `line.height()` is rounded
        line.setPosition({m_frame.left, ++rows * m_frame.lineHeight - height});
    }
    layout.endLayout();
    return rows;
}

QPointF TextLayout::drawingOffset(const QTextLine& line) const {
    const qreal row = line.lineNumber() * m_frame.lineHeight;
    return {0, row + baseline() - line.y() - line.ascent()};
}

qreal TextLayout::baseline() const {
    const QFontMetricsF metrics(document()->defaultFont());
    return std::round((m_frame.lineHeight + metrics.ascent() - metrics.descent()) / 2);
}

QRectF TextLayout::blockBoundingRect(const QTextBlock& block) const {
    if (!block.isValid())
        return {};
    if (!isLaidOut(block) && layBlock(block))
        announceSize();
    const qreal bottom = block.next().isValid() ? 0 : m_frame.bottom;
    return {0, 0, documentSize().width(), block.layout()->lineCount() * m_frame.lineHeight + bottom};
}

QSizeF TextLayout::documentSize() const {
    return {m_frame.left + m_frame.width, static_cast<qreal>(document()->lineCount())};
}

void TextLayout::documentChanged(int from, int removed, int added) {
    static_cast<void>(removed);
    const auto& text = *document();
    const auto first = text.findBlock(from);
    const auto last = text.findBlock(std::min(from + added, text.characterCount() - 1));
    for (auto block = first; block.isValid(); block = block.next()) {
        block.clearLayout();
        block.setUserState(-1);
        if (block == last)
            break;
    }
    const bool sameBlocks = first == last && text.blockCount() == m_blockCount;
    m_blockCount = text.blockCount();
    // Clearing a document replaces its block by one that counts one line, so comparing the block's lines does
    // not show that the document has become shorter.
    if (sameBlocks && !layBlock(first) && text.lineCount() == m_announcedRows) {
        emit updateBlock(first);
        return;
    }
    announceSize();
    emit update();
}

bool TextLayout::layBlock(const QTextBlock& block) const {
    auto changed = block;
    changed.setUserState(m_generation);
    const int rows = layLines(*block.layout(), wrapMode(block.text()), m_frame.width);
    if (rows == block.lineCount())
        return false;
    changed.setLineCount(rows);
    return true;
}

bool TextLayout::isLaidOut(const QTextBlock& block) const {
    return block.userState() == m_generation && block.layout()->lineCount() > 0;
}

void TextLayout::announceSize() const {
    // The view responds by accessing blocks, which may lay out more of them.
    if (m_announcing)
        return;
    m_announcing = true;
    m_announcedRows = document()->lineCount();
    emit const_cast<TextLayout*>(this)->documentSizeChanged(documentSize());
    m_announcing = false;
}

} // namespace korvane
