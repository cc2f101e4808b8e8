/// What the keys and the pointer do in a list.
#include "Desktop/Access/ContextMenu.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Lists/RowList.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>
#include <vector>

namespace korvane {

void RowList::keyPressEvent(QKeyEvent* event) {
    const auto* focus = window()->focusWidget();
    if (focus != this && isAncestorOf(focus)) // what a button has no use for is not meant for the list
        return event->ignore();
    if (onKey && onKey(event))
        return;
    const bool hasCurrent = m_current >= 0;
    const auto command =
        std::ranges::find(m_source.commands, QKeySequence(event->keyCombination()), &RowCommand::keys);
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (hasCurrent && command != m_source.commands.end() && command->isEnabled(m_current))
        command->run(m_current);
    else if (hasCurrent && isReturn && onActivate)
        onActivate(m_current);
    else if (event->matches(QKeySequence::Copy))
        copy();
    else if (event->matches(QKeySequence::SelectAll) && hasTexts())
        selectAll();
    else if (hasTexts() && m_selection.handle(*event, rowsOfPage()))
        followCaret();
    else if (!moveByKey(event->key()) && !searchFor(*event))
        event->ignore();
}

int RowList::rowsOfPage() const {
    return std::max(viewport()->height() / std::max(m_places.line, 1), 1);
}

/// Whether the key was one, and was of use.
bool RowList::moveByKey(int key) {
    const auto page = m_source.goesAsAnyList ? std::max(rowsOfPage() - 1, 1) : rowsOfPage();
    const std::pair<int, int> moves[] = {{Qt::Key_Up, m_current - 1},
                                         {Qt::Key_Down, m_current + 1},
                                         {Qt::Key_PageUp, m_current - page},
                                         {Qt::Key_PageDown, m_current + page},
                                         {Qt::Key_Home, 0},
                                         {Qt::Key_End, m_count - 1}};
    const auto move = std::ranges::find(moves, key, &std::pair<int, int>::first);
    if (move == std::end(moves) || m_count == 0)
        return false;
    const auto row = std::clamp(move->second, 0, m_count - 1);
    if (row == m_current && m_source.goesAsAnyList)
        return false;
    setCurrentRow(row);
    showRow(row);
    return true;
}

/// Goes to the next row whose name begins with what is typed without a pause. Returns whether that was
/// typing.
bool RowList::searchFor(const QKeyEvent& typed) {
    const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool isText = !typed.text().isEmpty() && typed.text().front().isPrint();
    if (!m_source.goesAsAnyList || !isText || (typed.modifiers() & commands) != 0)
        return false;
    const bool goesOn =
        m_sinceTyping.isValid() && m_sinceTyping.elapsed() <= QApplication::keyboardInputInterval();
    m_typed = goesOn ? m_typed + typed.text() : typed.text();
    m_sinceTyping.start();
    // One character begins a search, and so does the same one again, at the next row.
    const int start = m_typed.count(m_typed.front()) == m_typed.size() ? 1 : 0;
    m_searchedRow = m_current + start;
    m_unsearchedRows = m_count;
    searchOn();
    return true;
}

/// Searches the next rows, and has the others searched later: millions of names take seconds.
void RowList::searchOn() {
    constexpr int rowsAtOnce = 5'000; // a few milliseconds
    m_searching.stop();
    for (int rows = std::min(m_unsearchedRows, rowsAtOnce); rows > 0; --rows) {
        const auto row = m_searchedRow++ % m_count;
        --m_unsearchedRows;
        if (qString(m_source.name(row)).startsWith(m_typed, Qt::CaseInsensitive))
            return setCurrentRow(row);
    }
    if (m_unsearchedRows > 0)
        m_searching.start(0, this);
}

void RowList::mousePressEvent(QMouseEvent* event) {
    const auto position = event->position().toPoint();
    const auto row = rowAt(position);
    const bool isLeft = event->button() == Qt::LeftButton;
    if (row >= 0)
        makeCurrent(row); // where it is: the pointer is over it
    m_pressedRow = isLeft ? row : -1;
    m_isDragging = isLeft && row >= 0 && m_source.goesAsAnyList;
    if (!hasTexts() || m_count == 0)
        return;
    if (!isLeft) {
        if (m_selection.in(row).isEmpty()) // else a menu is to copy what is selected
            m_selection.moveTo(placeAt(position));
        return;
    }
    const bool isThird =
        m_sinceDoubleClick.isValid() && m_sinceDoubleClick.elapsed() < QApplication::doubleClickInterval();
    const bool isRow = isThird || isInMargin(position);
    m_sinceDoubleClick.invalidate();
    pressText(position, isRow ? RowTextSelection::Unit::row : RowTextSelection::Unit::character,
              event->modifiers().testFlag(Qt::ShiftModifier));
}

void RowList::mouseMoveEvent(QMouseEvent* event) {
    const auto position = event->position().toPoint();
    if (!m_isDragging || !hasTexts())
        hover(rowAt(position));
    if (!m_isDragging)
        return;
    constexpr int interval = 50; // in milliseconds: some twenty steps a second
    if (viewport()->rect().contains(position))
        m_scrolling.stop();
    else if (!m_scrolling.isActive())
        m_scrolling.start(interval, this);
    dragTo(position);
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
    const auto position = event->position().toPoint();
    const auto row = rowAt(position);
    if (onClick && row >= 0 && row == m_pressedRow)
        onClick(row, position - rowPlace(row).topLeft());
    m_pressedRow = -1;
    m_isDragging = false;
    m_scrolling.stop();
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!hasTexts() || event->button() != Qt::LeftButton || m_count == 0)
        return mousePressEvent(event);
    const auto position = event->position().toPoint();
    m_sinceDoubleClick.start();
    pressText(position, isInMargin(position) ? RowTextSelection::Unit::row : RowTextSelection::Unit::word,
              false);
}

void RowList::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_scrolling.timerId())
        dragTo(viewport()->mapFromGlobal(QCursor::pos()));
    else if (event->timerId() == m_searching.timerId())
        searchOn();
    else
        QAbstractScrollArea::timerEvent(event);
}

/// The nearest one in the nearest row.
RowTextPlace RowList::placeAt(QPoint position) const {
    const auto visible = viewport()->rect();
    const auto inside = QPoint(position.x(), std::clamp(position.y(), visible.top(), visible.bottom()));
    const auto row = nearestRow(inside);
    return {row, m_source.texts->offsetAt(row, inside - rowPlace(row).topLeft())};
}

bool RowList::answersTo(QKeySequence::StandardKey command) const {
    return command == QKeySequence::Copy || (command == QKeySequence::SelectAll && hasTexts());
}

bool RowList::isInMargin(QPoint position) const {
    return position.x() + horizontalScrollBar()->value() < m_source.texts->marginWidth();
}

void RowList::pressText(QPoint position, RowTextSelection::Unit unit, bool extends) {
    if (extends)
        m_selection.extendTo(placeAt(position));
    else
        m_selection.press(placeAt(position), unit);
    m_isDragging = true;
    followCaret();
}

/// Outside the list the pointer goes on, a row or a few characters at a time.
void RowList::dragTo(QPoint position) {
    const auto visible = viewport()->rect();
    const QPoint inside(std::clamp(position.x(), visible.left(), visible.right()),
                        std::clamp(position.y(), visible.top(), visible.bottom()));
    const auto scroll = [](QScrollBar* bar, int distance) {
        bar->setValue(bar->value() + std::clamp(distance, -1, 1) * bar->singleStep());
    };
    scroll(verticalScrollBar(), position.y() - inside.y());
    if (!hasTexts())
        return setCurrentRow(nearestRow(inside));
    scroll(horizontalScrollBar(), position.x() - inside.x());
    m_selection.extendTo(placeAt(position));
    followCaret();
}

/// Makes the row of the caret the current one.
void RowList::followCaret() {
    makeCurrent(m_selection.caret().row);
    if (!m_isDragging)
        showCaret();
    viewport()->update();
}

/// At the pointer, or below the start of the current row's text.
QPoint RowList::menuPlace(const QContextMenuEvent& event) const {
    if (event.reason() != QContextMenuEvent::Keyboard)
        return event.globalPos();
    const auto place = rowPlace(m_current).intersected(viewport()->rect());
    return viewport()->mapToGlobal(place.bottomLeft() + QPoint(m_source.textLeft(m_current), 1));
}

void RowList::contextMenuEvent(QContextMenuEvent* event) {
    if (m_source.copyTitle.isEmpty() || m_current < 0)
        return event->ignore();
    std::vector<MenuCommand> commands{
        {.title = m_source.copyTitle, .keys = QKeySequence::Copy, .run = [this] { copy(); }}};
    for (const auto& command : m_source.commands)
        commands.push_back({.title = command.title,
                            .keys = command.keys,
                            .run = [this, run = command.run] { run(m_current); },
                            .isEnabled = command.isEnabled(m_current)});
    if (hasTexts())
        commands.push_back(
            {.title = tr("Select &All"), .keys = QKeySequence::SelectAll, .run = [this] { selectAll(); }});
    showContextMenu(*this, menuPlace(*event), commands);
}

} // namespace korvane
