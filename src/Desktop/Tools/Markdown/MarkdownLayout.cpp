#include "Desktop/Tools/Markdown/MarkdownLayout.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

/// Lines of more characters are freed; several times what a screen shows.
constexpr qsizetype maxLaidOutCharacters = 500'000;

/// The distance between the text of `block` and that of the block before. Qt's layout has the same rule.
int gapAbove(const QTextBlock& block) {
    const auto before = block.previous();
    const auto own = block.blockFormat().topMargin();
    return static_cast<int>(before.isValid() ? std::max(before.blockFormat().bottomMargin(), own) : own);
}

int lineHeightOf(const QTextBlockFormat& format) {
    return std::max(static_cast<int>(format.lineHeight()), 1);
}

/// The offset of a line's top from the top of its space of `height`. Qt's layout has the same rule.
qreal offsetInSpace(const QTextLine& line, int height) {
    constexpr qreal baseline = 0.8;
    return height * baseline - (line.ascent() + std::max(line.leading(), 0.0));
}

/// The parts of the selections that are in `block`.
QList<QTextLayout::FormatRange> selectedIn(const QTextBlock& block,
                                           const QList<QAbstractTextDocumentLayout::Selection>& selections) {
    QList<QTextLayout::FormatRange> ranges;
    for (const auto& selection : selections) {
        const auto from = std::max(selection.cursor.selectionStart() - block.position(), 0);
        const auto to = std::min(selection.cursor.selectionEnd() - block.position(), block.length());
        if (from < to)
            ranges.push_back({.start = from, .length = to - from, .format = selection.format});
    }
    return ranges;
}

} // namespace

MarkdownLayout::MarkdownLayout(QTextDocument* document) : QAbstractTextDocumentLayout(document) {}

void MarkdownLayout::setTop(int top) {
    if (std::exchange(m_top, top) == top)
        return;
    reportSize();
    emit update();
}

void MarkdownLayout::setMargin(int margin) {
    if (document()->documentMargin() == margin)
        return;
    m_changesMargin = true;
    document()->setDocumentMargin(margin);
    m_changesMargin = false;
}

qreal MarkdownLayout::startOf(const QTextBlock& block) const {
    return m_top + block.firstLineNumber();
}

QTextBlock MarkdownLayout::blockAt(qreal y) const {
    const auto line = static_cast<int>(std::floor(y)) - m_top;
    if (line < 0)
        return document()->firstBlock();
    const auto block = document()->findBlockByLineNumber(line);
    return block.isValid() ? block : document()->lastBlock();
}

bool MarkdownLayout::layOutBetween(qreal top, qreal bottom) {
    bool hasChanged = false;
    for (auto block = blockAt(top); block.isValid() && startOf(block) < bottom; block = block.next())
        hasChanged = ensureLines(block) || hasChanged;
    return hasChanged;
}

bool MarkdownLayout::measureSome(int budget) {
    constexpr int costOfBlock = 20;
    auto block = document()->findBlockByNumber(m_nextToMeasure);
    for (; block.isValid() && budget > 0; block = block.next()) {
        budget -= 1;
        if (isMeasured(block))
            continue;
        budget -= costOfBlock + block.length();
        layOut(block);
        block.clearLayout();
    }
    m_nextToMeasure = block.isValid() ? block.blockNumber() : document()->blockCount();
    return block.isValid();
}

void MarkdownLayout::freeLines() {
    if (m_laidOutCharacters <= maxLaidOutCharacters)
        return;
    for (const auto number : m_laidOut) {
        if (auto block = document()->findBlockByNumber(number); block.isValid())
            block.clearLayout();
    }
    m_laidOut.clear();
    m_laidOutCharacters = 0;
}

void MarkdownLayout::reportSize() {
    const auto size = documentSize();
    if (std::exchange(m_reportedSize, size) != size)
        emit documentSizeChanged(size);
}

void MarkdownLayout::draw(QPainter* painter, const PaintContext& context) {
    const auto clip = context.clip.isValid() ? context.clip : QRectF({0, 0}, documentSize());
    painter->setPen(context.palette.color(QPalette::Text));
    for (auto block = blockAt(clip.top()); block.isValid() && startOf(block) <= clip.bottom();
         block = block.next()) {
        const auto origin = blockBoundingRect(block).topLeft();
        const auto& layout = *block.layout();
        layout.draw(painter, origin, selectedIn(block, context.selections), clip);
        const auto cursor = context.cursorPosition - block.position();
        if (context.cursorPosition >= 0 && cursor >= 0 && cursor < block.length())
            layout.drawCursor(painter, origin, cursor);
    }
}

int MarkdownLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    const auto block = blockAt(point.y());
    const auto area = blockBoundingRect(block);
    const auto& layout = *block.layout();
    const auto height = lineHeightOf(block.blockFormat());
    const auto inBlock = point - area.topLeft();
    const auto index = std::clamp(static_cast<int>(std::floor(inBlock.y() / height)), 0,
                                  std::max(layout.lineCount() - 1, 0));
    const auto line = layout.lineAt(index);
    if (accuracy == Qt::ExactHit) {
        const auto text = line.naturalTextRect();
        const bool isOnText = inBlock.y() >= 0 && point.y() < area.bottom() && inBlock.x() >= text.left() &&
                              inBlock.x() <= text.right();
        return isOnText ? block.position() + line.xToCursor(inBlock.x(), QTextLine::CursorOnCharacter) : -1;
    }
    if (inBlock.y() < 0)
        return block.position();
    return block.position() + line.xToCursor(inBlock.x());
}

QSizeF MarkdownLayout::documentSize() const {
    return {std::max(document()->pageSize().width(), 0.0),
            m_top + document()->lineCount() + document()->documentMargin()};
}

QRectF MarkdownLayout::frameBoundingRect(QTextFrame*) const {
    return {{0, 0}, documentSize()};
}

QRectF MarkdownLayout::blockBoundingRect(const QTextBlock& block) const {
    if (!block.isValid())
        return {};
    ensureLines(block);
    return linesOf(block);
}

QRectF MarkdownLayout::linesOf(const QTextBlock& block) const {
    const auto format = block.blockFormat();
    return {document()->documentMargin(), startOf(block) + gapAbove(block),
            textWidth(format) + format.leftMargin() + format.rightMargin(),
            static_cast<qreal>(block.layout()->lineCount() * lineHeightOf(format))};
}

qreal MarkdownLayout::textWidth(const QTextBlockFormat& format) const {
    const auto width = document()->pageSize().width() - 2 * document()->documentMargin();
    return std::max(width - format.leftMargin() - format.rightMargin(), 0.0);
}

/// A change of the width or of a font reports the whole document as changed.
void MarkdownLayout::documentChanged(int from, int removed, int added) {
    const auto blockCount = document()->blockCount();
    const auto addedBlocks = blockCount - std::exchange(m_blockCount, blockCount);
    const bool isWhole = m_changesMargin || (from == 0 && removed == 0 && addedBlocks == 0);
    if (isWhole) {
        ++m_generation;
        m_nextToMeasure = 0;
        m_characterWidth = std::max(QFontMetricsF(document()->defaultFont()).averageCharWidth(), 1.0);
    } else {
        auto block = document()->findBlock(from);
        m_nextToMeasure = std::min(m_nextToMeasure, block.blockNumber());
        moveLaidOut(block.blockNumber(), addedBlocks);
        // The distance to the block after the change depends on the format of the one before.
        for (; block.isValid() && block.position() <= from + added; block = block.next())
            estimate(block);
    }
    reportSize();
    emit update(QRectF(0, isWhole ? 0 : startOf(document()->findBlock(from)), documentSize().width(),
                       documentSize().height()));
}

/// Adapts the numbers of blocks after `first`, where `added` blocks were inserted.
void MarkdownLayout::moveLaidOut(int first, int added) {
    for (auto& number : m_laidOut) {
        if (number > first)
            number = std::max(number + added, first);
    }
}

void MarkdownLayout::estimate(QTextBlock block) {
    const auto format = block.blockFormat();
    const auto perLine = std::max(textWidth(format) / m_characterWidth, 1.0);
    const auto lines = std::max(static_cast<int>(std::ceil((block.length() - 1) / perLine)), 1);
    block.setUserState(-1);
    block.setLineCount(gapAbove(block) + lines * lineHeightOf(format));
}

/// Returns whether the block's height has changed.
bool MarkdownLayout::ensureLines(const QTextBlock& block) const {
    if (isMeasured(block) && block.layout()->lineCount() > 0)
        return false;
    m_laidOut.push_back(block.blockNumber());
    m_laidOutCharacters += block.length();
    return layOut(block);
}

/// Returns whether the block's height has changed.
bool MarkdownLayout::layOut(QTextBlock block) const {
    const auto format = block.blockFormat();
    const auto height = lineHeightOf(format);
    const auto direction = block.textDirection();
    auto option = document()->defaultTextOption();
    option.setTextDirection(direction);
    option.setAlignment(QStyle::visualAlignment(direction, option.alignment()));

    auto& layout = *block.layout();
    layout.setTextOption(option);
    layout.beginLayout();
    int lines = 0;
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        const auto indent = lines == 0 ? format.textIndent() : 0;
        line.setLeadingIncluded(true);
        line.setLineWidth(std::max(textWidth(format) - indent, 0.0));
        line.setPosition({format.leftMargin() + (direction == Qt::LeftToRight ? indent : 0),
                          lines * height + offsetInSpace(line, height)});
        ++lines;
    }
    layout.endLayout();

    const auto before = block.lineCount();
    block.setUserState(m_generation);
    block.setLineCount(gapAbove(block) + lines * height);
    return block.lineCount() != before;
}

} // namespace korvane
