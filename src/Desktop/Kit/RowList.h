/// A list of rows of one height, of which only the visible ones are ever asked for: it serves sixteen tools
/// and a million tree rows alike. The rows are real list items to keyboard and assistive technology.
#pragma once

#include "Desktop/Kit/AccessibleRows.h"

#include <QListView>

#include <functional>
#include <optional>
#include <string>

namespace korvane {

class ViewCore;

/// How a row is to be painted.
struct RowState {
    bool isHovered;
    bool isCurrent; ///< has the list's keyboard position, and the list has the focus
    bool isSelected;
};

/// Where a list takes its rows from. Rows are numbered from 0.
struct RowSource {
    std::function<int()> count;
    std::function<std::string(int row)>
        name; ///< what assistive technology calls it, and what is copied unless `copied` is given
    std::function<void(QPainter&, const QRect&, int row, RowState)> paint;
    /// Where given, rows can be selected, and are copied as this text; none for a row that has nothing to
    /// copy.
    std::function<std::optional<std::string>(int row)> copied = nullptr;
    /// Where given, whether a row is unfolded; none for a row that has nothing to unfold.
    std::function<std::optional<bool>(int row)> isExpanded = [](int) { return std::optional<bool>(); };
    /// Whether a row is the chosen one, in a list of which one row is chosen by being pressed.
    std::function<bool(int row)> isChosen = [](int) { return false; };
    /// The button that lies over a row; there need be none while the row is out of sight.
    std::function<QWidget*(int row)> button = [](int) { return nullptr; };
    std::function<std::string(int row)> toolTip = [](int) { return std::string(); };
    std::function<int()> width = [] {
        return 0;
    }; ///< of the widest row; the list scrolls sideways to show it
    int height = 0;
    int topPadding = 0; ///< free room above the first row and below the last
};

class RowList final : public QListView, public AccessibleRows {
public:
    explicit RowList(RowSource source);

    /// Told of a click, with where in the row it was, and of Return or Enter on the current row.
    std::function<void(int row, QPoint position)> onClick;
    std::function<void(int row)> onActivate;

    /// Sees a key press first; returns whether it was dealt with.
    std::function<bool(QKeyEvent*)> onKey;

    /// In pixels. Keeps the first visible row in view.
    void setRowHeight(int height);

    /// Has the list ask for everything again. Keeps position and current row as far as they still exist.
    void reload();

    QRect visualRect(const QModelIndex& index) const override;

    int currentRow() const { return currentIndex().row(); }

    void setCurrentRow(int row);

    /// Puts the selected rows on the clipboard, each on a line, or else the current one.
    void copy() const;

    QWidget* rowsWidget() override { return this; }

    int accessibleRowCount() const override;
    AccessibleRow accessibleRow(int row) const override;

    int accessibleCurrentRow() const override { return currentRow(); }

    QRect accessibleRowPlace(int row) const override;
    int accessibleRowAt(QPoint position) const override;

    bool canPressRows() const override { return onActivate != nullptr; }

    void pressRow(int row) override;
    void focusRow(int row) override;

protected:
    void updateGeometries() override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    class Model;
    class Delegate;

    int rowWidth() const;
    std::optional<std::string> copiedText(int row) const;

    RowSource m_source;
    Model* m_model;
    int m_pressedRow = -1;
};

} // namespace korvane
