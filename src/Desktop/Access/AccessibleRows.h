/// Accessibility of lists that paint their rows themselves. Rows are list items; each is created only when it
/// is requested.
#pragma once

#include "Desktop/Access/Accessibility.h"

#include <QAccessible>
#include <QRect>
#include <QString>
#include <QWidget>

#include <optional>

namespace korvane {

struct AccessibleRow {
    QString name{};
    std::optional<bool> isExpanded{}; ///< none for a row that cannot be expanded
    bool isSelected = false;
    bool isEnabled = true;     ///< can be pressed, in lists where rows can
    QWidget* button = nullptr; ///< placed over the row; may be null
};

/// A control over a row of a list, which assistive technology finds as the row's child.
class RowPart {
public:
    RowPart() = default;
    RowPart(const RowPart&) = delete;
    RowPart& operator=(const RowPart&) = delete;
    virtual ~RowPart() = default;

    /// The accessible object of the row; null while there is none.
    virtual QAccessibleInterface* accessibleRow() const = 0;
};

/// A second base class of a list widget.
class AccessibleRows : public AccessibleControl {
public:
    virtual QWidget* rowsWidget() = 0;

    /// The role of the list.
    virtual QAccessible::Role accessibleRole() const { return QAccessible::List; }

    virtual int accessibleRowCount() const = 0;
    virtual AccessibleRow accessibleRow(int row) const = 0;

    /// The row at the list's keyboard position, which has the focus when the list has it; -1 if there is
    /// none.
    virtual int accessibleCurrentRow() const = 0;

    /// In screen coordinates, including what the list clips.
    virtual QRect accessibleRowPlace(int row) const = 0;

    /// -1 where there is none.
    virtual int accessibleRowAt(QPoint position) const = 0;

    /// Whether a row can be pressed.
    virtual bool canPressRows() const = 0;
    virtual void pressRow(int row) = 0;

    /// Focuses the list and moves its keyboard position to the row.
    virtual void focusRow(int row) = 0;

    QAccessibleInterface* newAccessibleInterface() final;

    /// The accessible object of a row.
    QAccessibleInterface* rowInterface(int row);

protected:
    /// To be called when the rows have changed.
    void reportOtherRows();

    /// To be called when the keyboard position has moved to a row.
    void reportCurrentRow(int row);
};

} // namespace korvane
