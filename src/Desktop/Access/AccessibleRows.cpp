#include "Desktop/Access/AccessibleRows.h"

#include <QAccessibleWidget>
#include <QMetaObject>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <map>

namespace korvane {

namespace {

class RowInterface final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    RowInterface(AccessibleRows& rows, int row) : m_list(rows.rowsWidget()), m_rows(rows), m_row(row) {}

    int row() const { return m_row; }

    bool isValid() const override { return m_list && m_row < m_rows.accessibleRowCount(); }

    QObject* object() const override { return nullptr; }

    QWindow* window() const override { return list()->window(); }

    QAccessibleInterface* parent() const override { return list(); }

    QAccessibleInterface* childAt(int x, int y) const override {
        auto* button = child(0);
        return button && button->rect().contains(x, y) ? button : nullptr;
    }

    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(facts().button) : nullptr;
    }

    int childCount() const override { return facts().button ? 1 : 0; }

    int indexOfChild(const QAccessibleInterface* child) const override {
        return child && child == this->child(0) ? 0 : -1;
    }

    QString text(QAccessible::Text text) const override {
        return text == QAccessible::Name ? facts().name : QString();
    }

    void setText(QAccessible::Text, const QString&) override {}

    /// The visible part; empty if there is none.
    QRect rect() const override { return m_rows.accessibleRowPlace(m_row).intersected(list()->rect()); }

    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QAccessible::State state() const override {
        const auto row = facts();
        QAccessible::State state;
        state.disabled = !row.isEnabled;
        state.selectable = row.isEnabled;
        state.selected = row.isSelected;
        state.focusable = true;
        state.focused = m_row == m_rows.accessibleCurrentRow() && m_list->hasFocus();
        state.expandable = row.isExpanded.has_value();
        state.expanded = row.isExpanded.value_or(false);
        state.collapsed = row.isExpanded.has_value() && !*row.isExpanded;
        state.invisible = !m_list->isVisible();
        state.offscreen = rect().isEmpty();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override {
        return m_rows.canPressRows() ? QStringList{pressAction(), setFocusAction()}
                                     : QStringList{setFocusAction()};
    }

    void doAction(const QString& action) override {
        // The caller waits for the reply, and the action may remove this row.
        const auto act = [&rows = m_rows, row = m_row, isPress = action == pressAction()] {
            if (row >= rows.accessibleRowCount())
                return;
            if (!isPress)
                rows.focusRow(row);
            else if (rows.canPressRows() && rows.accessibleRow(row).isEnabled)
                rows.pressRow(row);
        };
        if (m_list && actionNames().contains(action))
            QMetaObject::invokeMethod(m_list.data(), act, Qt::QueuedConnection);
    }

    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QAccessibleInterface* list() const { return QAccessible::queryAccessibleInterface(m_list); }

    AccessibleRow facts() const { return isValid() ? m_rows.accessibleRow(m_row) : AccessibleRow(); }

    QPointer<QWidget> m_list;
    AccessibleRows& m_rows; // lives as long as the list
    int m_row;
};

class RowsInterface final : public QAccessibleWidget {
public:
    explicit RowsInterface(AccessibleRows& rows)
        : QAccessibleWidget(rows.rowsWidget(), rows.accessibleRole()), m_rows(rows) {}

    ~RowsInterface() override { forgetRows(); }

    int childCount() const override { return m_rows.accessibleRowCount(); }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount())
            return nullptr;
        const auto known = m_known.find(index);
        if (known != m_known.end())
            return QAccessible::accessibleInterface(known->second);
        auto* row = new RowInterface(m_rows, index);
        m_known.emplace(index, QAccessible::registerAccessibleInterface(row));
        return row;
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* row = dynamic_cast<const RowInterface*>(child);
        return row && row->parent() == this ? row->row() : -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        return child(m_rows.accessibleRowAt({x, y}));
    }

    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        if (m_rows.accessibleCurrentRow() >= 0)
            state.focused = false; // the row has the focus
        return state;
    }

    QAccessibleInterface* focusChild() const override {
        auto* row = widget()->hasFocus() ? child(m_rows.accessibleCurrentRow()) : nullptr;
        return row ? row : QAccessibleWidget::focusChild();
    }

    void forgetRows() {
        for (const auto& [row, id] : m_known)
            QAccessible::deleteAccessibleInterface(id);
        m_known.clear();
    }

private:
    AccessibleRows& m_rows;
    mutable std::map<int, QAccessible::Id> m_known; ///< the rows requested so far
};

} // namespace

QAccessibleInterface* AccessibleRows::newAccessibleInterface() {
    return new RowsInterface(*this);
}

QAccessibleInterface* AccessibleRows::rowInterface(int row) {
    return QAccessible::queryAccessibleInterface(rowsWidget())->child(row);
}

void AccessibleRows::reportOtherRows() {
    if (!QAccessible::isActive())
        return;
    static_cast<RowsInterface*>(QAccessible::queryAccessibleInterface(rowsWidget()))->forgetRows();
    QAccessibleTableModelChangeEvent event(rowsWidget(), QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
}

void AccessibleRows::reportCurrentRow(int row) {
    if (!QAccessible::isActive() || !rowsWidget()->hasFocus())
        return;
    QAccessibleEvent event(rowsWidget(), QAccessible::Focus);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

} // namespace korvane
