/// The painting and placement of a text area.

#include "Desktop/Text/TextArea.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

constexpr int minDigits = 2; // so that the text does not move when line 10 is added

/// The column of line numbers, read from the control.
class Gutter final : public QWidget {
public:
    Gutter(TextArea& area, const TextAreaStyle& style) : QWidget(&area), m_area(area), m_style(style) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.setFont(m_area.font());
        painter.setPen(m_style.number);
        const auto baseline = static_cast<TextLayout*>(m_area.document()->documentLayout())->baseline();
        const QFontMetricsF metrics(m_area.font());
        for (const auto& [number, place] : m_area.visibleNumbers()) {
            const auto text = QString::number(number);
            if (place.intersects(event->rect()))
                painter.drawText(
                    QPointF(place.right() + 1 - metrics.horizontalAdvance(text), place.top() + baseline),
                    text);
        }
    }

private:
    const TextArea& m_area;
    const TextAreaStyle& m_style;
};

bool hasRightToLeftText(QStringView text) {
    return std::ranges::any_of(text, [](QChar character) {
        const auto direction = character.direction();
        return character >= u'\u0590' &&
               (direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirRLE ||
                direction == QChar::DirRLO || direction == QChar::DirRLI);
    });
}

/// The horizontal extents of the characters. In a row with text of both directions they may be in several
/// places.
std::vector<std::pair<qreal, qreal>> selectedExtents(const QTextBlock& block, const QTextLine& line, int from,
                                                     int to) {
    std::vector<std::pair<qreal, qreal>> extents;
    for (const auto& run : line.glyphRuns(from, to - from)) {
        const auto positions = run.positions();
        const auto advances = run.rawFont().advancesForGlyphIndexes(run.glyphIndexes());
        for (qsizetype glyph = 0; glyph < positions.size(); ++glyph)
            extents.emplace_back(positions[glyph].x(), positions[glyph].x() + advances[glyph].x());
    }
    const auto text = block.text();
    for (int character = from; character < to; ++character) {
        if (text[character] == u'\t') // has no glyph
            extents.emplace_back(line.cursorToX(character, QTextLine::Leading),
                                 line.cursorToX(character, QTextLine::Trailing));
    }
    return extents;
}

} // namespace

void TextArea::setStyle(const TextAreaStyle& style) {
    m_style = style;
    setFont(style.font);
    m_document.setDefaultFont(font()); // with the properties that the control has inherited
    fitGutter();
    layOut();
    viewport()->update();
    if (m_gutter)
        m_gutter->update();
}

void TextArea::setAlignment(Qt::Alignment alignment) {
    m_layout.setAlignment(alignment);
}

int TextArea::rowCount(int width) const {
    return m_layout.rowCount(width - m_style.inset.left() - m_style.inset.right());
}

void TextArea::setLineNumbers(bool shown) {
    if (shown == (m_gutter != nullptr))
        return;
    if (shown) {
        m_gutter = new Gutter(*this, m_style);
        m_gutter->show();
    } else {
        delete m_gutter;
        m_gutter = nullptr;
    }
    fitGutter();
}

int TextArea::numbersWidth() const {
    const auto digits = static_cast<int>(std::to_string(m_mirror.lineCount()).size());
    return static_cast<int>(
        std::ceil(QFontMetricsF(font()).horizontalAdvance(u'0') * std::max(digits, minDigits)));
}

/// Adapts the gutter's width to the widest number.
void TextArea::fitGutter() {
    const int width = m_gutter ? numbersWidth() + 2 * m_style.numberGap : 0;
    setViewportMargins(width, m_style.inset.top(), 0, 0);
    if (m_gutter)
        m_gutter->setGeometry(0, 0, width, height());
}

/// Lays out the lines for a changed width or style, and keeps the first visible one in view.
void TextArea::layOut() {
    const auto block = firstVisibleBlock();
    const auto& lines = *block.layout();
    const int row = static_cast<int>(std::lround(-contentOffset().y() / m_layout.frame().lineHeight));
    const int character = row < lines.lineCount() ? lines.lineAt(row).textStart() : 0;
    const qreal free = viewport()->width() - m_style.inset.left() - m_style.inset.right();
    m_layout.setFrame({.left = static_cast<qreal>(m_style.inset.left()),
                       .width = std::max(free, 1.0),
                       .bottom = static_cast<qreal>(m_style.inset.bottom()),
                       .lineHeight = m_style.lineHeight});
    m_layout.blockBoundingRect(block);
    const auto line = lines.lineForTextPosition(character);
    if (line.isValid())
        verticalScrollBar()->setValue(block.firstLineNumber() + line.lineNumber());
}

void TextArea::resizeEvent(QResizeEvent* event) {
    fitGutter();
    layOut();
    // The base class would clear the layout of every block of the document on a change of width.
    QResizeEvent sameWidth(event->size(), {event->size().width(), event->oldSize().height()});
    QPlainTextEdit::resizeEvent(&sameWidth);
}

/// The base class requests the natural rectangles of lines, which differ slightly from the painted rows.
void TextArea::repaintRows(const QRect& rect) {
    const auto rows = rect.adjusted(0, -m_style.lineHeight, 0, m_style.lineHeight);
    viewport()->update(rows);
    if (m_gutter)
        m_gutter->update(0, rows.top() + viewport()->y(), m_gutter->width(), rows.height());
}

std::vector<VisibleNumber> TextArea::visibleNumbers() const {
    std::vector<VisibleNumber> numbers;
    if (!m_gutter)
        return numbers;
    const int width = numbersWidth();
    auto top = contentOffset().y();
    for (auto block = firstVisibleBlock(); block.isValid() && top < viewport()->height();
         block = block.next()) {
        const bool begins = block.position() == 0 || newlineCount(lineBreakBefore(block)) > 0;
        if (begins && top + m_style.lineHeight > 0) {
            const int y = viewport()->y() + static_cast<int>(std::lround(top));
            numbers.push_back({m_mirror.lineNumber(block.blockNumber()),
                               QRect(m_style.numberGap, y, width, m_style.lineHeight)});
        }
        top += m_layout.blockBoundingRect(block).height();
    }
    return numbers;
}

void TextArea::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.setPen(m_style.text);
    auto context = getPaintContext();
    const bool showsCaret = textInteractionFlags() & (Qt::TextEditable | Qt::TextSelectableByKeyboard);
    auto block = firstVisibleBlock();
    if (m_document.isEmpty() && block.layout()->preeditAreaText().isEmpty())
        paintPlaceholder(painter);
    auto origin = contentOffset();
    for (; block.isValid() && origin.y() <= event->rect().bottom(); block = block.next()) {
        const auto height = m_layout.blockBoundingRect(block).height();
        if (origin.y() + height > event->rect().top()) {
            paintBlock(painter, block, origin, event->rect());
            if (showsCaret)
                paintCaret(painter, block, origin, context.cursorPosition);
        }
        origin.ry() += height;
    }
}

void TextArea::paintPlaceholder(QPainter& painter) const {
    auto text = placeholderText();
    text.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(text, font(), viewport());
    m_layout.layLines(layout);
    painter.save();
    painter.setPen(m_style.placeholder);
    for (int row = 0; row < layout.lineCount(); ++row) {
        const auto line = layout.lineAt(row);
        line.draw(&painter, contentOffset() + m_layout.drawingOffset(line));
    }
    painter.restore();
}

void TextArea::paintBlock(QPainter& painter, const QTextBlock& block, QPointF origin,
                          const QRect& exposed) const {
    const auto& layout = *block.layout();
    const int height = m_style.lineHeight;
    const auto rowAt = [&](qreal y) { return static_cast<int>(std::floor((y - origin.y()) / height)); };
    const int last = std::min(rowAt(exposed.bottom()), layout.lineCount() - 1);
    // A glyph of another font may extend into a neighbouring row.
    for (int row = std::max(rowAt(exposed.top()) - 1, 0); row <= last; ++row)
        paintSelection(painter, block, layout.lineAt(row), origin);
    for (int row = std::max(rowAt(exposed.top()) - 1, 0); row <= last; ++row) {
        const auto line = layout.lineAt(row);
        line.draw(&painter, origin + m_layout.drawingOffset(line));
    }
}

/// Fills the selected part of a row, to the end of the row if the selection continues in the next one.
void TextArea::paintSelection(QPainter& painter, const QTextBlock& block, const QTextLine& line,
                              QPointF origin) const {
    const auto cursor = textCursor();
    const int from = std::max(cursor.selectionStart() - block.position(), line.textStart());
    const int lineEnd = line.textStart() + line.textLength();
    const int selectionEnd = cursor.selectionEnd() - block.position();
    const bool isLastRow = line.lineNumber() == block.layout()->lineCount() - 1;
    const bool continues = isLastRow ? selectionEnd > lineEnd : selectionEnd >= lineEnd;
    const int to = std::min(selectionEnd, lineEnd);
    if (!cursor.hasSelection() || from > to || (from == to && !continues))
        return;
    const qreal top = origin.y() + line.lineNumber() * m_style.lineHeight;
    const auto fill = [&](qreal left, qreal right) {
        const QRectF rect(QPointF(std::round(origin.x() + left), top),
                          QPointF(std::round(origin.x() + right), top + m_style.lineHeight));
        painter.fillRect(rect, m_style.selection);
    };
    const auto& frame = m_layout.frame();
    if (!hasRightToLeftText(QStringView(block.text()).sliced(line.textStart(), line.textLength()))) {
        fill(line.cursorToX(from), continues ? frame.left + frame.width : line.cursorToX(to));
        return;
    }
    for (const auto& [left, right] : selectedExtents(block, line, from, to))
        fill(left, right);
    if (continues)
        fill(std::max(line.naturalTextRect().right(), frame.left), frame.left + frame.width);
}

void TextArea::paintCaret(QPainter& painter, const QTextBlock& block, QPointF origin, int caret) const {
    const auto& layout = *block.layout();
    int position = caret - block.position();
    if (caret < -1 && !layout.preeditAreaText().isEmpty())
        position = layout.preeditAreaPosition() - (caret + 2); // the caret of a composition
    else if (caret < block.position() || caret >= block.position() + block.length())
        return;
    const auto line = layout.lineForTextPosition(position);
    const QFontMetricsF metrics(font());
    const qreal top = line.lineNumber() * m_style.lineHeight + m_layout.baseline() - metrics.ascent();
    painter.fillRect(QRectF(std::floor(origin.x() + line.cursorToX(position)), std::round(origin.y() + top),
                            cursorWidth(), std::round(metrics.height())),
                     m_style.text);
}

} // namespace korvane
