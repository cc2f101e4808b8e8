/// How lists that paint their rows themselves present them to assistive technology: as list items, however
/// many there are, of which each is made only when it is asked for.
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
    std::optional<bool> isExpanded{}; ///< none where there is nothing to unfold
    bool isSelected = false;
    bool isEnabled = true;     ///< can be pressed, where rows can be
    QWidget* button = nullptr; ///< that lies over the row, if there is one
};

/// A control that lies over a row of a list and that assistive technology finds in this row.
class RowPart {
public:
    RowPart() = default;
    RowPart(const RowPart&) = delete;
    RowPart& operator=(const RowPart&) = delete;
    virtual ~RowPart() = default;

    /// The object that stands for the row, or null while there is none.
    virtual QAccessibleInterface* accessibleRow() const = 0;
};

/// To be derived from by a widget beside its toolkit's class.
class AccessibleRows : public AccessibleControl {
public:
    virtual QWidget* rowsWidget() = 0;

    /// What kind of list it is.
    virtual QAccessible::Role accessibleRole() const { return QAccessible::List; }

    virtual int accessibleRowCount() const = 0;
    virtual AccessibleRow accessibleRow(int row) const = 0;

    /// The row with the list's keyboard position, which has the focus when the list has it; -1 where no row
    /// takes it.
    virtual int accessibleCurrentRow() const = 0;

    /// In the coordinates of the screen. What the list hides of it counts as well.
    virtual QRect accessibleRowPlace(int row) const = 0;

    /// -1 where there is none.
    virtual int accessibleRowAt(QPoint position) const = 0;

    /// Whether a row can be pressed.
    virtual bool canPressRows() const = 0;
    virtual void pressRow(int row) = 0;

    /// Gives the list the focus and the row the list's keyboard position.
    virtual void focusRow(int row) = 0;

    QAccessibleInterface* newAccessibleInterface() final;

    /// The object that stands for a row.
    QAccessibleInterface* rowInterface(int row);

protected:
    /// To be called when the rows have become others.
    void reportOtherRows();

    /// To be called when the keyboard's position has moved to a row.
    void reportCurrentRow(int row);
};

} // namespace korvane
