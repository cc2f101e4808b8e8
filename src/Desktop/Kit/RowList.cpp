#include "Desktop/Kit/RowList.h"

#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/Theme.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
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

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {m_list->m_source.width(), m_list->m_source.height};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        auto row = option.rect;
        row.setWidth(m_list->rowWidth()); // the view has cut it to its own
        painter->save();
        m_list->m_source.paint(*painter, row, index.row(),
                               {.isHovered = option.state.testFlag(QStyle::State_MouseOver),
                                .isCurrent = m_list->hasFocus() && index == m_list->currentIndex(),
                                .isSelected = option.state.testFlag(QStyle::State_Selected)});
        painter->restore();
    }

private:
    RowList* m_list;
};

RowList::RowList(RowSource source) : m_source(std::move(source)), m_model(new Model(m_source, this)) {
    setModel(m_model);
    setItemDelegate(new Delegate(this));
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setSelectionMode(m_source.copied ? ExtendedSelection : NoSelection);
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
    reportOtherRows();
}

void RowList::setRowHeight(int height) {
    const auto first = verticalScrollBar()->value() / std::max(1, m_source.height);
    m_source.height = height;
    reload();
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
    if (row >= 0 && row < m_model->rowCount())
        setCurrentIndex(m_model->index(row));
}

int RowList::accessibleRowCount() const {
    return m_model->rowCount();
}

AccessibleRow RowList::accessibleRow(int row) const {
    return {.name = qString(m_source.name(row)),
            .isExpanded = m_source.isExpanded(row),
            .isSelected = m_source.isChosen(row) || selectionModel()->isSelected(m_model->index(row)),
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
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && onActivate && currentIndex().isValid()) {
        onActivate(currentRow());
        return;
    }
    if (event->matches(QKeySequence::Copy)) {
        copy();
        return;
    }
    QListView::keyPressEvent(event);
}

void RowList::mousePressEvent(QMouseEvent* event) {
    QListView::mousePressEvent(event);
    m_pressedRow = event->button() == Qt::LeftButton ? indexAt(event->position().toPoint()).row() : -1;
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    const auto index = indexAt(event->position().toPoint());
    if (onClick && index.isValid() && index.row() == m_pressedRow)
        onClick(index.row(), event->position().toPoint() - visualRect(index).topLeft());
    m_pressedRow = -1;
}

std::optional<std::string> RowList::copiedText(int row) const {
    return m_source.copied ? m_source.copied(row) : m_source.name(row);
}

void RowList::copy() const {
    std::vector<int> rows;
    for (const auto& range : selectionModel()->selection()) {
        for (auto row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::ranges::sort(rows); // ranges are in the order of selecting
    if (rows.empty() && currentIndex().isValid())
        rows.push_back(currentRow());
    QStringList lines;
    for (const auto row : rows) {
        if (const auto text = copiedText(row))
            lines.push_back(qString(*text));
    }
    if (!lines.empty())
        QApplication::clipboard()->setText(lines.join('\n'));
}

void RowList::contextMenuEvent(QContextMenuEvent* event) {
    if (!m_source.copied)
        return QListView::contextMenuEvent(event);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("&Copy"), QKeySequence::Copy, this, &RowList::copy);
    menu->addAction(tr("Select All"), QKeySequence::SelectAll, this, &RowList::selectAll);
    menu->popup(event->globalPos());
}

} // namespace korvane
