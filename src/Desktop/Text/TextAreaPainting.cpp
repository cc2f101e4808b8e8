/// The painting, placement and scrolling of a text area.

#include "Desktop/Text/TextArea.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleHints>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

constexpr int minDigits = 2; // so that the text does not move when line 10 is added

/// The column of line numbers, read from the control.
class Gutter final : public QWidget {
public:
    Gutter(TextArea& area, const TextAreaStyle& style, const TextLayout& layout)
        : QWidget(&area), m_area(area), m_style(style), m_layout(layout) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        const auto markedRows = m_area.markedRows();
        for (const auto& row : markedRows)
            painter.fillRect(row, m_style.markedLine);
        const auto baseline = baselineOf(m_layout.style());
        for (const auto& [number, place] : m_area.visibleNumbers()) {
            if (!place.intersects(event->rect()))
                continue;
            const bool isMarked =
                std::ranges::any_of(markedRows, [&](const QRect& row) { return row.intersects(place); });
            auto font = m_area.font();
            font.setWeight(isMarked ? QFont::DemiBold : font.weight());
            painter.setFont(font);
            painter.setPen(isMarked ? m_style.markedNumber : m_style.number);
            const auto text = QString::number(number);
            const auto width = QFontMetricsF(font).horizontalAdvance(text);
            painter.drawText(QPointF(place.right() + 1 - width, place.top() + baseline), text);
        }
    }

private:
    const TextArea& m_area;
    const TextAreaStyle& m_style;
    const TextLayout& m_layout;
};

} // namespace

void TextArea::setStyle(const TextAreaStyle& style) {
    m_style = style;
    setFont(style.font);
    fitGutter();
    layOut();
    updateAll();
}

int TextArea::rowCount(int width) const {
    auto style = m_layout.style();
    style.width = width - m_style.inset.left() - m_style.inset.right();
    TextLayout layout(m_layout);
    layout.setStyle(style);
    return static_cast<int>(layout.rowCount());
}

void TextArea::setLineNumbers(bool shown) {
    if (shown == (m_gutter != nullptr))
        return;
    if (shown) {
        m_gutter = new Gutter(*this, m_style, m_layout);
        m_gutter->show();
    } else {
        delete m_gutter;
        m_gutter = nullptr;
    }
    fitGutter();
}

int TextArea::numbersWidth() const {
    const auto digits = static_cast<int>(std::to_string(text().newlineCount() + 1).size());
    return static_cast<int>(
        std::ceil(QFontMetricsF(font()).horizontalAdvance(u'0') * std::max(digits, minDigits)));
}

/// Adapts the gutter's width to the widest number.
void TextArea::fitGutter() {
    const int width = m_gutter ? numbersWidth() + 2 * m_style.numberGap : 0;
    const QMargins margins(width, m_style.inset.top(), 0, 0);
    if (margins != viewportMargins())
        setViewportMargins(margins);
    if (m_gutter)
        m_gutter->setGeometry(0, 0, width, height());
}

/// Lays out the rows for a changed width or style. The text at the top stays there.
void TextArea::layOut() {
    auto style = m_layout.style();
    style.font = font(); // with the properties that the control has inherited
    style.left = m_style.inset.left();
    style.width = std::max(viewport()->width() - m_style.inset.left() - m_style.inset.right(), 1);
    style.lineHeight = m_style.lineHeight;
    m_layout.setStyle(style);
    updateScrollBar();
}

void TextArea::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    fitGutter();
    layOut();
}

/// The number of rows that fit into the view.
int TextArea::visibleRowCount() const {
    return std::max(viewport()->height() / m_style.lineHeight, 1);
}

/// The number of rows that fit with the inset below the text. Of the first one, only the glyphs have to.
int TextArea::lastRowCount() const {
    const auto aboveGlyphs = m_style.lineHeight - QFontMetricsF(font()).height();
    const auto room = viewport()->height() - 1 - m_style.inset.bottom() + aboveGlyphs;
    return std::max(static_cast<int>(room / m_style.lineHeight), 1);
}

PlacedRow TextArea::topRow() const {
    return m_layout.rowAt(std::min(m_top, text().size()));
}

/// The first visible row if the last one is at the bottom.
PlacedRow TextArea::lastTopRow() const {
    return m_layout.moved(m_layout.rowAt(text().size()), 1 - lastRowCount());
}

/// Makes `row` the first visible one, or the last that can be.
void TextArea::scrollTo(const PlacedRow& row) {
    m_top = std::min(row.start(), lastTopRow().start());
    updateScrollBar();
    updateAll();
}

void TextArea::updateScrollBar() {
    const auto last = lastTopRow();
    m_top = std::min(topRow().start(), last.start());
    const auto max = static_cast<int>(m_layout.rowsBefore(last));
    auto value = static_cast<int>(m_layout.rowsBefore(topRow()));
    if (m_top == last.start())
        value = max;
    else if (m_top > 0) // an estimate must not be at an end that the text has not reached
        value = std::max(std::min(value, max - 1), 1);
    const bool wasMoving = std::exchange(m_isMovingScrollBar, true);
    verticalScrollBar()->setRange(0, max);
    verticalScrollBar()->setPageStep(lastRowCount());
    verticalScrollBar()->setValue(value);
    m_isMovingScrollBar = wasMoving;
}

void TextArea::scrollBy(std::ptrdiff_t rows) {
    scrollTo(m_layout.moved(topRow(), rows));
}

/// Follows the scroll bar: by rows if the wheel turns it, otherwise to a place, which is an estimate in a
/// large text.
void TextArea::scrollContentsBy(int, int dy) {
    if (m_isMovingScrollBar)
        return;
    const auto& bar = *verticalScrollBar();
    if (m_isWheelTurning)
        return scrollBy(-dy);
    m_top = bar.value() == bar.maximum()
                ? lastTopRow().start()
                : m_layout.rowAfterRows(static_cast<std::size_t>(bar.value())).start();
    updateAll();
}

void TextArea::wheelEvent(QWheelEvent* event) {
    m_isWheelTurning = true;
    QAbstractScrollArea::wheelEvent(event);
    m_isWheelTurning = false;
}

void TextArea::reveal(std::size_t offset) {
    const auto target = m_layout.rowAt(offset);
    const auto top = topRow();
    if (target.start() < top.start()) {
        scrollTo(target);
        return;
    }
    const auto firstTop = m_layout.moved(target, 1 - visibleRowCount());
    if (top.start() < firstTop.start())
        scrollTo(firstTop);
}

QRect TextArea::caretRect(std::size_t offset) const {
    const auto target = m_layout.rowAt(offset);
    // Far rows are outside; where exactly does not matter.
    const int reach = 2 * visibleRowCount() + 2;
    auto row = topRow();
    int index = 0;
    const bool isAbove = target.start() < row.start();
    while (row.start() != target.start() && index < reach) {
        const auto next = isAbove ? m_layout.rowBefore(row) : m_layout.rowAfter(row);
        if (!next)
            break;
        row = *next;
        ++index;
    }
    const auto x = target.line().cursorToX(target.place.piece->unitAt(offset - target.place.start));
    const auto top = (isAbove ? -index : index) * m_style.lineHeight;
    const QFontMetricsF metrics(font());
    return QRectF(std::floor(x), std::round(top + baselineOf(m_layout.style()) - metrics.ascent()),
                  style()->pixelMetric(QStyle::PM_TextCursorWidth), std::round(metrics.height()))
        .toRect();
}

std::size_t TextArea::offsetAt(QPoint point) const {
    auto row = topRow();
    auto rows = static_cast<int>(std::floor(static_cast<double>(point.y()) / m_style.lineHeight));
    for (; rows != 0; rows += rows < 0 ? 1 : -1) {
        auto next = rows < 0 ? m_layout.rowBefore(row) : m_layout.rowAfter(row);
        if (!next)
            return rows < 0 ? 0 : text().size();
        row = std::move(*next);
    }
    return offsetNear(row, point.x());
}

void TextArea::updateAll() {
    viewport()->update();
    if (m_gutter)
        m_gutter->update();
}

void TextArea::restartBlinking() {
    m_isCaretShown = hasFocus() && m_hasCaret;
    const int flashTime = QGuiApplication::styleHints()->cursorFlashTime();
    if (m_isCaretShown && flashTime >= 2)
        m_blinking.start(flashTime / 2, this);
    else
        m_blinking.stop();
}

std::vector<VisibleNumber> TextArea::visibleNumbers() const {
    std::vector<VisibleNumber> numbers;
    if (!m_gutter)
        return numbers;
    const int width = numbersWidth();
    int top = 0;
    for (auto row = std::optional(topRow()); row && top < viewport()->height();
         row = m_layout.rowAfter(*row)) {
        const auto start = row->place.start;
        if (row->index == 0 && m_layout.lineAt(start).start == start)
            numbers.push_back({text().newlinesBefore(start) + 1,
                               QRect(m_style.numberGap, viewport()->y() + top, width, m_style.lineHeight)});
        top += m_style.lineHeight;
    }
    return numbers;
}

void TextArea::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.setPen(m_style.text);
    if (text().empty() && !m_layout.preedit())
        paintPlaceholder(painter);
    const auto rows = [&](auto paint) {
        // A glyph of another font may extend into a neighbouring row.
        const int from = event->rect().top() - m_style.lineHeight;
        int top = 0;
        for (auto row = std::optional(topRow()); row && top <= event->rect().bottom();
             row = m_layout.rowAfter(*row)) {
            if (top + m_style.lineHeight > from)
                paint(*row, top);
            top += m_style.lineHeight;
        }
    };
    for (const auto& row : markedRows())
        painter.fillRect(row.translated(-viewport()->pos()), m_style.markedLine);
    const auto marks = visibleMarks();
    rows([&](const PlacedRow& row, int top) {
        for (const auto& mark : marks)
            paintMark(painter, mark, row, top);
        paintSelection(painter, row, top);
    });
    rows([&](const PlacedRow& row, int top) {
        const QPointF origin(0, top - row.index * m_style.lineHeight);
        row.line().draw(&painter, origin + drawingOffset(row.line(), m_layout.style()));
        paintCaret(painter, row, top);
    });
}

void TextArea::paintPlaceholder(QPainter& painter) const {
    auto text = m_placeholder;
    text.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(text, font(), viewport());
    layRows(layout, m_layout.style());
    painter.save();
    painter.setPen(m_style.placeholder);
    for (int row = 0; row < layout.lineCount(); ++row) {
        const auto line = layout.lineAt(row);
        line.draw(&painter, drawingOffset(line, m_layout.style()));
    }
    painter.restore();
}

void TextArea::paintCaret(QPainter& painter, const PlacedRow& row, qreal top) const {
    const auto offset = m_dropOffset.value_or(m_selection.caret);
    const auto& piece = *row.place.piece;
    const bool isInPiece = offset >= row.place.start &&
                           (offset < row.place.end() || (piece.endsLine() && offset == row.place.end()));
    if (!isInPiece || !(m_isCaretShown || m_dropOffset))
        return;
    int unit = piece.unitAt(offset - row.place.start);
    if (m_layout.preedit()) {
        if (m_layout.preedit()->caret < 0)
            return;
        unit += m_layout.preedit()->caret;
    }
    if (piece.rowWith(unit) != row.index)
        return;
    const QFontMetricsF metrics(font());
    painter.fillRect(QRectF(std::floor(row.line().cursorToX(unit)),
                            std::round(top + baselineOf(m_layout.style()) - metrics.ascent()),
                            style()->pixelMetric(QStyle::PM_TextCursorWidth), std::round(metrics.height())),
                     m_style.text);
}

} // namespace korvane
