#include "Desktop/Lists/RowList.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Buttons.h"

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// Scrolls as little as shows what is from `start` to `end` in a view of the size `room`; of what is larger,
/// the start.
void reveal(QScrollBar* bar, int start, int end, int room) {
    if (start < 0)
        bar->setValue(bar->value() + start);
    else if (end > room)
        bar->setValue(bar->value() + std::min(end - room, start));
}

} // namespace

void copyToDesktop(std::string_view text) {
    QApplication::clipboard()->setText(qString(text));
}

RowList::RowList(RowSource source)
    : m_source(std::move(source)), m_selection(m_source.texts.value_or(RowTexts()), m_source.count) {
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    if (hasTexts())
        viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAutoFillBackground(false);
    setViewportMargins(0, m_source.topPadding, 0, m_source.topPadding);
    if (m_source.buttons)
        m_buttons = std::make_unique<RowButtons>(*this, *m_source.buttons);
    reload();
}

void RowList::reload() {
    m_searching.stop();
    m_count = m_source.count();
    m_current = std::clamp(m_current, std::min(0, m_count - 1), m_count - 1);
    m_hovered = -1;
    m_selection.moveTo({std::max(m_current, 0), 0});
    layOut();
    reportOtherRows();
}

void RowList::restart() {
    m_current = -1;
    reload();
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
}

void RowList::layOut() {
    m_places = m_source.places ? m_source.places() : evenRows(m_count, m_source.height);
    const auto view = viewport()->size();
    verticalScrollBar()->setSingleStep(m_places.line);
    verticalScrollBar()->setPageStep(view.height());
    verticalScrollBar()->setRange(0, std::max(m_places.height - view.height(), 0));
    horizontalScrollBar()->setSingleStep(rowWidth()); // a turn of the wheel goes no further than a page
    horizontalScrollBar()->setPageStep(view.width());
    horizontalScrollBar()->setRange(0, rowWidth() - view.width());
    moveParts();
}

void RowList::setRowHeight(int height) {
    const auto first = verticalScrollBar()->value() / std::max(1, m_source.height);
    m_source.height = height;
    layOut();
    verticalScrollBar()->setValue(first * height);
}

void RowList::moveParts() {
    if (m_buttons)
        m_buttons->place();
    if (onMove)
        onMove();
    viewport()->update();
}

void RowList::scrollContentsBy(int, int) {
    const auto pointer = viewport()->mapFromGlobal(QCursor::pos());
    if (viewport()->rect().contains(pointer))
        hover(rowAt(pointer));
    moveParts();
}

void RowList::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    layOut();
}

void RowList::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    if (std::exchange(m_showsCurrent, false))
        showRow(m_current);
}

void RowList::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange)
        layOut();
}

int RowList::rowWidth() const {
    return std::max(m_source.width(), viewport()->width());
}

QRect RowList::rowPlace(int row) const {
    if (row < 0 || row >= m_count)
        return {};
    const auto span = m_places.of(row);
    const auto left = m_source.sidePadding;
    return {left - horizontalScrollBar()->value(), span.top - verticalScrollBar()->value(),
            rowWidth() - 2 * left, span.height};
}

/// Of the row at a height in the viewport, or of the nearest one. There must be rows.
int RowList::nearestRow(QPoint position) const {
    return m_places.nearest(position.y() + verticalScrollBar()->value());
}

int RowList::rowAt(QPoint position) const {
    if (m_count == 0 || position.x() < 0 || position.x() >= viewport()->width())
        return -1;
    const auto row = nearestRow(position);
    const auto place = rowPlace(row);
    const bool isIn = position.y() >= place.top() && position.y() <= place.bottom();
    return isIn || m_places.takeGaps ? row : -1;
}

std::pair<int, int> RowList::visibleRows() const {
    const auto top = verticalScrollBar()->value();
    const auto bottom = top + viewport()->height();
    if (m_count == 0 || top == bottom)
        return {0, 0};
    const auto first = m_places.nearest(top);
    const auto last = m_places.nearest(bottom - 1);
    return {m_places.of(first).bottom() > top ? first : first + 1,
            m_places.of(last).top < bottom ? last + 1 : last};
}

/// Makes a row current, visible or not.
void RowList::makeCurrent(int row) {
    if (row == m_current)
        return;
    m_searching.stop();
    m_current = row;
    viewport()->update();
    reportCurrentRow(row);
    if (onCurrentRow)
        onCurrentRow(row);
}

void RowList::setCurrentRow(int row) {
    if (row < 0 || row >= m_count)
        return;
    const bool isOther = row != m_current;
    makeCurrent(row);
    if (hasTexts()) {
        m_selection.moveTo({row, 0});
        showCaret();
    } else if (isOther && isVisible()) {
        showRow(row);
    } else if (isOther) {
        m_showsCurrent = true; // what the list has room for is not known before
    }
}

void RowList::showRow(int row) {
    if (row < 0 || row >= m_count)
        return;
    const auto span = m_places.surroundings ? m_places.surroundings(row) : m_places.of(row);
    const auto scrolled = verticalScrollBar()->value();
    reveal(verticalScrollBar(), span.top - scrolled, span.bottom() - scrolled, viewport()->height());
}

/// Scrolls until the row, and the caret in it, is visible.
void RowList::showCaret() {
    const auto [row, offset] = m_selection.caret();
    showRow(row);
    const auto left = rowPlace(row).left();
    const auto caret = m_source.texts->caret(row, offset).translated(left, 0);
    const auto margin = offset == 0 ? caret.left() - left : caret.height(); // a few characters
    reveal(horizontalScrollBar(), caret.left() - margin, caret.right() + margin, viewport()->width());
    viewport()->update();
}

void RowList::hover(int row) {
    if (std::exchange(m_hovered, row) != row)
        viewport()->update();
}

void RowList::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void RowList::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

bool RowList::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave)
        hover(-1);
    if (event->type() == QEvent::LayoutRequest && m_buttons) { // one has another width
        m_buttons->place();
        viewport()->update();
    }
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto row = rowAt(help->pos());
    const auto text = row < 0 ? QString() : qString(m_source.toolTip(row));
    QToolTip::showText(help->globalPos(), text, viewport(), rowPlace(row));
    event->setAccepted(!text.isEmpty());
    return true;
}

RowState RowList::stateOf(int row) const {
    RowState state{.isHovered = row == m_hovered, .isCurrent = hasFocus() && row == m_current};
    if (hasTexts()) {
        state.selected = m_selection.in(row);
        if (state.isCurrent && m_selection.caret().row == row)
            state.caret = m_selection.caret().offset;
    }
    return state;
}

void RowList::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    if (m_source.paintBehind) {
        painter.save();
        m_source.paintBehind(painter);
        painter.restore();
    }
    const auto [first, end] = visibleRows();
    for (int row = first; row < end; ++row) {
        const auto place = rowPlace(row);
        if (!place.intersects(event->rect()))
            continue;
        painter.save();
        m_source.paint(painter, place, row, stateOf(row));
        painter.restore();
    }
}

void RowList::selectAll() {
    if (!hasTexts())
        return;
    m_selection.selectAll();
    viewport()->update();
}

void RowList::copy() const {
    if (hasTexts() && !m_selection.isEmpty()) {
        m_source.putOnClipboard(m_selection.text());
    } else if (m_current >= 0) {
        if (m_source.copyRow)
            m_source.copyRow(m_current);
        else if (!hasTexts())
            m_source.putOnClipboard(m_source.name(m_current));
        else if (const auto text = m_source.texts->text(m_current))
            m_source.putOnClipboard(*text);
    }
}

AccessibleRow RowList::accessibleRow(int row) const {
    return {.name = qString(m_source.name(row)),
            .isExpanded = m_source.isExpanded(row),
            .isSelected = m_source.isChosen(row) || (hasTexts() && !m_selection.in(row).isEmpty()),
            .button = m_buttons ? m_buttons->of(row) : nullptr};
}

QRect RowList::accessibleRowPlace(int row) const {
    const auto place = rowPlace(row);
    return {viewport()->mapToGlobal(place.topLeft()), place.size()};
}

int RowList::accessibleRowAt(QPoint position) const {
    return rowAt(viewport()->mapFromGlobal(position));
}

void RowList::pressRow(int row) {
    setCurrentRow(row);
    onActivate(row);
}

void RowList::focusRow(int row) {
    setFocus(Qt::OtherFocusReason);
    setCurrentRow(row);
}

} // namespace korvane
