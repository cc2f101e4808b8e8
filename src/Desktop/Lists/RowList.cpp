#include "Desktop/Lists/RowList.h"

#include "Desktop/Access/ContextMenu.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/Theme.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>
#include <vector>

namespace korvane {

class RowList::Model final : public QAbstractListModel {
public:
    Model(const RowSource& source, QObject* parent) : QAbstractListModel(parent), m_source(source) {}

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_count; }

    QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::AccessibleTextRole || role == Qt::DisplayRole)
            return qString(m_source.name(index.row()));
        if (role == Qt::ToolTipRole)
            return qString(m_source.toolTip(index.row()));
        return {};
    }

    void reload() {
        beginResetModel();
        m_count = m_source.count();
        endResetModel();
    }

private:
    const RowSource& m_source;
    int m_count = 0;
};

class RowList::Delegate final : public QStyledItemDelegate {
public:
    explicit Delegate(RowList* list) : QStyledItemDelegate(list), m_list(list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
        const auto& source = m_list->m_source;
        return {source.width(), source.rowHeight ? source.rowHeight(index.row()) : source.height};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        auto row = option.rect;
        row.setWidth(m_list->rowWidth()); // the view has cut it to its own
        RowState state{.isHovered = option.state.testFlag(QStyle::State_MouseOver),
                       .isCurrent = m_list->hasFocus() && index == m_list->currentIndex()};
        if (m_list->hasTexts()) {
            const auto& selection = m_list->selection();
            state.selected = selection.in(index.row());
            if (state.isCurrent && selection.caret().row == index.row())
                state.caret = selection.caret().offset;
        }
        painter->save();
        m_list->m_source.paint(*painter, row, index.row(), state);
        painter->restore();
    }

private:
    RowList* m_list;
};

void copyToDesktop(std::string_view text) {
    QApplication::clipboard()->setText(qString(text));
}

RowList::RowList(RowSource source)
    : m_source(std::move(source)),
      m_selection(m_source.texts.value_or(RowTexts()), m_source.count),
      m_model(new Model(m_source, this)) {
    setModel(m_model);
    setItemDelegate(new Delegate(this));
    setUniformItemSizes(!m_source.rowHeight);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setSelectionMode(NoSelection);
    if (hasTexts()) {
        setAutoScroll(false); // to the whole of a row, which may be wider than the view; the caret leads
        viewport()->setCursor(Qt::IBeamCursor);
    }
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    setViewportMargins(0, m_source.topPadding, 0, m_source.topPadding);
    reload();
}

void RowList::reload() {
    const auto row = currentRow();
    const auto vertical = verticalScrollBar()->value();
    const auto horizontal = horizontalScrollBar()->value();
    m_model->reload();
    doItemsLayout();
    verticalScrollBar()->setSingleStep(m_source.height);
    verticalScrollBar()->setValue(vertical);
    horizontalScrollBar()->setValue(horizontal);
    const QSignalBlocker quiet(selectionModel());
    if (m_model->rowCount() > 0)
        selectionModel()->setCurrentIndex(m_model->index(std::clamp(row, 0, m_model->rowCount() - 1)),
                                          QItemSelectionModel::NoUpdate);
    m_selection.moveTo({std::max(currentRow(), 0), 0});
    reportOtherRows();
}

void RowList::setRowHeight(int height) {
    const auto first = verticalScrollBar()->value() / std::max(1, m_source.height);
    const auto selection = m_selection;
    m_source.height = height;
    reload();
    m_selection = selection; // the rows are the same
    verticalScrollBar()->setValue(first * height);
}

// The base makes the rows of a single column as wide as the view, however wide they would like to be.

int RowList::rowWidth() const {
    return std::max(m_source.width(), viewport()->width());
}

QRect RowList::visualRect(const QModelIndex& index) const {
    auto rect = QListView::visualRect(index);
    if (rect.isValid())
        rect.setWidth(rowWidth());
    return rect;
}

void RowList::updateGeometries() {
    QListView::updateGeometries();
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0, rowWidth() - viewport()->width());
}

void RowList::setCurrentRow(int row) {
    if (row < 0 || row >= m_model->rowCount())
        return;
    setCurrentIndex(m_model->index(row));
    if (hasTexts()) {
        m_selection.moveTo({row, 0});
        showCaret();
    }
}

int RowList::accessibleRowCount() const {
    return m_model->rowCount();
}

AccessibleRow RowList::accessibleRow(int row) const {
    return {.name = qString(m_source.name(row)),
            .isExpanded = m_source.isExpanded(row),
            .isSelected = m_source.isChosen(row) || (hasTexts() && !m_selection.in(row).isEmpty()),
            .button = m_source.button(row)};
}

QRect RowList::accessibleRowPlace(int row) const {
    const auto place = visualRect(m_model->index(row));
    return {viewport()->mapToGlobal(place.topLeft()), place.size()};
}

int RowList::accessibleRowAt(QPoint position) const {
    return indexAt(viewport()->mapFromGlobal(position)).row();
}

void RowList::pressRow(int row) {
    setCurrentRow(row);
    onActivate(row);
}

void RowList::focusRow(int row) {
    setFocus(Qt::OtherFocusReason);
    setCurrentRow(row);
}

void RowList::keyPressEvent(QKeyEvent* event) {
    if (onKey && onKey(event))
        return;
    const bool hasCurrent = currentIndex().isValid();
    const auto command =
        std::ranges::find(m_source.commands, QKeySequence(event->keyCombination()), &RowCommand::keys);
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (hasCurrent && command != m_source.commands.end() && command->isEnabled(currentRow()))
        command->run(currentRow());
    else if (hasCurrent && isReturn && onActivate)
        onActivate(currentRow());
    else if (event->matches(QKeySequence::Copy))
        copy();
    else if (event->matches(QKeySequence::SelectAll) && hasTexts())
        selectAll();
    else if (hasTexts() && m_selection.handle(*event, rowsOfPage()))
        followCaret();
    else
        QListView::keyPressEvent(event);
}

int RowList::rowsOfPage() const {
    return std::max(viewport()->height() / std::max(m_source.height, 1), 1);
}

void RowList::mousePressEvent(QMouseEvent* event) {
    QListView::mousePressEvent(event);
    const auto position = event->position().toPoint();
    m_pressedRow = event->button() == Qt::LeftButton ? indexAt(position).row() : -1;
    if (!hasTexts() || m_model->rowCount() == 0)
        return;
    if (event->button() != Qt::LeftButton) {
        if (m_selection.in(indexAt(position).row()).isEmpty()) // else a menu is to copy what is selected
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

/// The toolkit's list would have the row under the pointer become the current one.
void RowList::mouseMoveEvent(QMouseEvent* event) {
    if (!m_isDragging)
        return QListView::mouseMoveEvent(event);
    constexpr int interval = 50; // in milliseconds: some twenty steps a second
    const auto position = event->position().toPoint();
    if (viewport()->rect().contains(position))
        m_scrolling.stop();
    else if (!m_scrolling.isActive())
        m_scrolling.start(interval, this);
    dragTo(position);
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    const auto index = indexAt(event->position().toPoint());
    if (onClick && index.isValid() && index.row() == m_pressedRow)
        onClick(index.row(), event->position().toPoint() - visualRect(index).topLeft());
    m_pressedRow = -1;
    m_isDragging = false;
    m_scrolling.stop();
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!hasTexts() || event->button() != Qt::LeftButton || m_model->rowCount() == 0)
        return QListView::mouseDoubleClickEvent(event);
    const auto position = event->position().toPoint();
    m_sinceDoubleClick.start();
    pressText(position, isInMargin(position) ? RowTextSelection::Unit::row : RowTextSelection::Unit::word,
              false);
}

void RowList::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_scrolling.timerId())
        dragTo(viewport()->mapFromGlobal(QCursor::pos()));
    else
        QListView::timerEvent(event);
}

/// The nearest one in the nearest row.
RowTextPlace RowList::placeAt(QPoint position) const {
    const auto visible = viewport()->rect();
    const auto inside = QPoint(position.x(), std::clamp(position.y(), visible.top(), visible.bottom()));
    const auto index = indexAt({std::clamp(inside.x(), visible.left(), visible.right()), inside.y()});
    const auto row = index.isValid() ? index.row() : m_model->rowCount() - 1; // below the last one
    const auto corner = visualRect(m_model->index(row)).topLeft();
    return {row, m_source.texts->offsetAt(row, inside - corner)};
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

/// Outside the list the pointer has the caret go on, a row or a few characters at a time.
void RowList::dragTo(QPoint position) {
    const auto visible = viewport()->rect();
    const auto beyond = position - QPoint(std::clamp(position.x(), visible.left(), visible.right()),
                                          std::clamp(position.y(), visible.top(), visible.bottom()));
    const auto scroll = [&](QScrollBar* bar, int distance) {
        bar->setValue(bar->value() + std::clamp(distance, -1, 1) * bar->singleStep());
    };
    scroll(verticalScrollBar(), beyond.y());
    scroll(horizontalScrollBar(), beyond.x());
    m_selection.extendTo(placeAt(position));
    followCaret();
}

/// Makes the row of the caret the current one.
void RowList::followCaret() {
    selectionModel()->setCurrentIndex(m_model->index(m_selection.caret().row), QItemSelectionModel::NoUpdate);
    if (!m_isDragging)
        showCaret();
    viewport()->update();
}

/// Scrolls as far as needed for the row, and in it the caret, to be seen.
void RowList::showCaret() {
    const auto [row, offset] = m_selection.caret();
    const auto place = QListView::visualRect(m_model->index(row));
    const auto caret = m_source.texts->caret(row, offset).translated(place.left(), 0);
    const auto scroll = [](QScrollBar* bar, int start, int end, int room) {
        if (start < 0)
            bar->setValue(bar->value() + start);
        else if (end > room)
            bar->setValue(bar->value() + std::min(end - room, start));
    };
    scroll(verticalScrollBar(), place.top(), place.bottom() + 1, viewport()->height());
    const auto margin = offset == 0 ? caret.left() - place.left() : caret.height(); // a few characters
    scroll(horizontalScrollBar(), caret.left() - margin, caret.right() + margin, viewport()->width());
    viewport()->update();
}

void RowList::selectAll() {
    if (!hasTexts())
        return;
    m_selection.selectAll();
    viewport()->update();
}

void RowList::clearSelection() {
    m_selection.moveTo({std::max(currentRow(), 0), 0});
    viewport()->update();
}

void RowList::copy() const {
    if (hasTexts() && !m_selection.isEmpty()) {
        m_source.putOnClipboard(m_selection.text());
    } else if (currentIndex().isValid()) {
        const auto row = currentRow();
        if (m_source.copyRow)
            m_source.copyRow(row);
        else if (!hasTexts())
            m_source.putOnClipboard(m_source.name(row));
        else if (const auto text = m_source.texts->text(row))
            m_source.putOnClipboard(*text);
    }
}

/// At the pointer, or below the start of the current row's text.
QPoint RowList::menuPlace(const QContextMenuEvent& event) const {
    if (event.reason() != QContextMenuEvent::Keyboard)
        return event.globalPos();
    const auto place = visualRect(currentIndex()).intersected(viewport()->rect());
    return viewport()->mapToGlobal(place.bottomLeft() + QPoint(m_source.textLeft(currentRow()), 1));
}

void RowList::contextMenuEvent(QContextMenuEvent* event) {
    if (m_source.copyTitle.isEmpty() || !currentIndex().isValid())
        return QListView::contextMenuEvent(event);
    const auto row = currentRow();
    std::vector<MenuCommand> commands{
        {.title = m_source.copyTitle, .keys = QKeySequence::Copy, .run = [this] { copy(); }}};
    for (const auto& command : m_source.commands)
        commands.push_back({.title = command.title,
                            .keys = command.keys,
                            .run = [this, run = command.run] { run(currentRow()); },
                            .isEnabled = command.isEnabled(row)});
    if (hasTexts())
        commands.push_back(
            {.title = tr("Select &All"), .keys = QKeySequence::SelectAll, .run = [this] { selectAll(); }});
    showContextMenu(*this, menuPlace(*event), commands);
}

} // namespace korvane
