/// The pointer in a text area: selecting, dragging and dropping, the context menu.

#include "Desktop/Text/TextArea.h"

#include "Desktop/Access/ContextMenu.h"
#include "Desktop/Text/TextContent.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleHints>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

constexpr int autoScrollInterval = 50; // milliseconds

} // namespace

/// Selects from the unit where the press was to the unit at `point`.
void TextArea::extendSelectionTo(QPoint point) {
    const auto offset = offsetAt(point);
    const auto unit = unitAround(offset, m_selectedUnit);
    if (m_selectedUnit == Unit::character)
        selectAsUser({m_firstUnit.anchor, offset});
    else if (offset < m_firstUnit.from())
        selectAsUser({m_firstUnit.to(), unit.from()});
    else
        selectAsUser({m_firstUnit.from(), std::max(unit.to(), m_firstUnit.to())});
}

void TextArea::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    event->accept();
    const auto point = event->position().toPoint();
    const auto offset = offsetAt(point);
    const auto distance = (point - std::exchange(m_pointer, point)).manhattanLength();
    const bool isTriple = m_tripleClick.isActive() && distance < QApplication::startDragDistance();
    m_tripleClick.stop();
    if (isTriple) {
        m_selectedUnit = Unit::line;
        m_firstUnit = unitAround(offset, Unit::line);
        selectAsUser(m_firstUnit);
        m_isSelecting = true;
        return;
    }
    m_selectedUnit = Unit::character;
    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        m_firstUnit = {m_selection.anchor, m_selection.anchor};
        m_isSelecting = true;
        extendSelectionTo(point);
    } else if (offset > m_selection.from() && offset < m_selection.to()) {
        m_pressed = point; // to be dragged, or released
    } else {
        m_firstUnit = {offset, offset};
        m_isSelecting = true;
        selectAsUser(m_firstUnit);
        reveal(offset);
    }
}

void TextArea::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_pressed.reset();
    m_pointer = event->position().toPoint();
    m_selectedUnit = Unit::word;
    m_firstUnit = unitAround(offsetAt(m_pointer), Unit::word);
    selectAsUser(m_firstUnit);
    m_isSelecting = true;
    m_tripleClick.start(QApplication::doubleClickInterval(), this);
}

void TextArea::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton))
        return;
    const auto point = event->position().toPoint();
    if (m_pressed) {
        if ((point - *m_pressed).manhattanLength() >= QApplication::startDragDistance())
            startDrag();
        return;
    }
    if (!m_isSelecting)
        return;
    m_pointer = point;
    extendSelectionTo(point);
    const bool isOutside = point.y() < 0 || point.y() >= viewport()->height();
    if (!isOutside)
        m_autoScroll.stop();
    else if (!m_autoScroll.isActive())
        m_autoScroll.start(autoScrollInterval, this);
}

void TextArea::mouseReleaseEvent(QMouseEvent* event) {
    m_autoScroll.stop();
    if (event->button() == Qt::LeftButton) {
        if (m_pressed) {
            const auto offset = offsetAt(event->position().toPoint());
            selectAsUser({offset, offset});
        }
        m_pressed.reset();
        m_isSelecting = false;
        offerSelection();
    } else if (event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection() &&
               !m_isReadOnly) {
        const auto offset = offsetAt(event->position().toPoint());
        selectAsUser({offset, offset});
        insertFrom(QGuiApplication::clipboard()->mimeData(QClipboard::Selection));
    } else {
        event->ignore();
    }
}

/// Offers the selected text as the primary selection, where the system has one.
void TextArea::offerSelection() const {
    if (!m_selection.isEmpty() && QGuiApplication::clipboard()->supportsSelection())
        QGuiApplication::clipboard()->setMimeData(newMimeData(selectedText()), QClipboard::Selection);
}

void TextArea::startDrag() {
    m_pressed.reset();
    const QPointer<TextArea> area(this); // the screen may close while the pointer drags
    auto* drag = new QDrag(this);
    drag->setMimeData(newMimeData(selectedText()));
    const auto actions = m_isReadOnly ? Qt::CopyAction : Qt::CopyAction | Qt::MoveAction;
    const auto before = text();
    const auto action = drag->exec(actions, m_isReadOnly ? Qt::CopyAction : Qt::MoveAction);
    // A drop in this control has moved the text already.
    if (area && action == Qt::MoveAction && drag->target() != this && drag->target() != viewport() &&
        text() == before)
        insert(TextEditKind::other, {});
}

void TextArea::dragEnterEvent(QDragEnterEvent* event) {
    if (accepts(event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void TextArea::dragMoveEvent(QDragMoveEvent* event) {
    if (!accepts(event->mimeData()))
        return event->ignore();
    event->acceptProposedAction();
    const auto point = event->position().toPoint();
    m_dropOffset = offsetAt(point);
    updateAll();
    if (point.y() < m_style.lineHeight)
        scrollBy(-1);
    else if (point.y() >= viewport()->height() - m_style.lineHeight)
        scrollBy(1);
}

void TextArea::dragLeaveEvent(QDragLeaveEvent*) {
    m_dropOffset.reset();
    updateAll();
}

void TextArea::dropEvent(QDropEvent* event) {
    m_dropOffset.reset();
    if (!accepts(event->mimeData()))
        return event->ignore();
    event->acceptProposedAction();
    const auto dropped = textOf(*event->mimeData());
    auto offset = offsetAt(event->position().toPoint());
    const bool isOwn = event->source() == this || event->source() == viewport();
    if (isOwn && event->dropAction() == Qt::MoveAction) {
        if (offset >= m_selection.from() && offset <= m_selection.to())
            return;
        // One edit, which one undo takes back: the text between the two places changes sides.
        const auto [from, to] = std::pair(m_selection.from(), m_selection.to());
        const auto moved = selectedText();
        if (offset < from)
            edit(TextEditKind::other, offset, to, moved + text().substr(offset, from - offset));
        else
            edit(TextEditKind::other, from, offset, text().substr(to, offset - to) + moved);
        offset = offset < from ? offset : offset - (to - from);
    } else {
        edit(TextEditKind::other, offset, offset, dropped);
    }
    setSelection({offset, offset + dropped.size()});
    setFocus();
}

void TextArea::contextMenuEvent(QContextMenuEvent* event) {
    const bool isEmpty = text().empty();
    if (m_isReadOnly)
        return showContextMenu(*this, event->globalPos(),
                               readingCommands([this] { copyText(); }, [this] { selectAll(); }, !isEmpty));
    showContextMenu(
        *this, event->globalPos(),
        editingCommands({.undo = {[this] { undo(); }, canUndo()},
                         .redo = {[this] { redo(); }, canRedo()},
                         .cut = {[this] { cut(); }, !m_selection.isEmpty()},
                         .copy = {[this] { copy(); }, !m_selection.isEmpty()},
                         .paste = {[this] { paste(); }, accepts(QGuiApplication::clipboard()->mimeData())},
                         .remove = {[this] { insert(TextEditKind::other, {}); }, !m_selection.isEmpty()},
                         .selectAll = {[this] { selectAll(); }, !isEmpty}}));
}

void TextArea::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_blinking.timerId()) {
        m_isCaretShown = !m_isCaretShown;
        viewport()->update(caretRect(m_selection.caret).adjusted(-1, -1, 1, 1));
    } else if (event->timerId() == m_tripleClick.timerId()) {
        m_tripleClick.stop();
    } else if (event->timerId() == m_autoScroll.timerId()) {
        scrollBy(m_pointer.y() < 0 ? -1 : 1);
        extendSelectionTo(m_pointer);
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

} // namespace korvane
