/// A list of rows, of which only the visible ones are ever asked for: it serves sixteen tools and a million
/// tree rows alike. The rows are real list items to keyboard and assistive technology.
#pragma once

#include "Desktop/Access/AccessibleRows.h"
#include "Desktop/Access/Editing.h"
#include "Desktop/Lists/RowTextSelection.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QKeySequence>
#include <QListView>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

/// How a row is to be painted.
struct RowState {
    bool isHovered;
    bool isCurrent;                     ///< has the list's keyboard position, and the list has the focus
    RowTextRange selected{};            ///< of its text
    std::optional<std::size_t> caret{}; ///< where in its text the caret is, if it is there and to be seen
};

/// What can be done with a row beside copying it: an item of the menu that opens over the row.
struct RowCommand {
    QString title{};
    QKeySequence keys{}; ///< do the same to the current row
    std::function<void(int row)> run{};
    std::function<bool(int row)> isEnabled = [](int) { return true; };
};

/// Puts a text on the desktop's clipboard.
void copyToDesktop(std::string_view text);

/// Where a list takes its rows from. Rows are numbered from 0.
struct RowSource {
    std::function<int()> count;
    std::function<std::string(int row)> name; ///< what assistive technology calls it
    std::function<void(QPainter&, const QRect&, int row, RowState)> paint;
    /// Where given, the texts of the rows can be selected, within a row and across rows.
    std::optional<RowTexts> texts{};
    /// How a selected text is copied.
    std::function<void(std::string_view)> putOnClipboard = copyToDesktop;
    /// Where given, how a row is copied while no text is selected. Else it is its text or, in a list without
    /// texts, its name.
    std::function<void(int row)> copyRow = nullptr;
    /// What a menu over the rows calls copying; without a title there is no menu.
    QString copyTitle{};
    std::vector<RowCommand> commands{};
    /// Where a row's text begins, in pixels from its left edge: a menu that a key opens stands below it.
    std::function<int(int row)> textLeft = [](int) { return 0; };
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
    /// Where given, the height of each row, for lists of a few hundred rows at most; else it is `height`.
    std::function<int(int row)> rowHeight = nullptr;
    int topPadding = 0; ///< free room above the first row and below the last
};

class RowList final : public QListView, public AccessibleRows, public CommandTarget {
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

    bool answersTo(QKeySequence::StandardKey command) const override;

    bool hasTexts() const { return m_source.texts.has_value(); }

    /// What of the rows' texts is selected; nothing in a list without texts.
    const RowTextSelection& selection() const { return m_selection; }

    /// Selects all texts.
    void selectAll() override;

    /// Ends the selection, and has the caret at the start of the current row.
    void clearSelection();

    /// Puts the selected text on the clipboard, or else the current row.
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
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    class Model;
    class Delegate;

    int rowWidth() const;
    int rowsOfPage() const;
    RowTextPlace placeAt(QPoint position) const;
    bool isInMargin(QPoint position) const;
    void pressText(QPoint position, RowTextSelection::Unit unit, bool extends);
    void dragTo(QPoint position);
    void followCaret();
    void showCaret();
    QPoint menuPlace(const QContextMenuEvent& event) const;

    RowSource m_source;
    RowTextSelection m_selection;
    Model* m_model;
    int m_pressedRow = -1;
    bool m_isDragging = false;
    QBasicTimer m_scrolling{};          ///< while the pointer is dragged outside the list
    QElapsedTimer m_sinceDoubleClick{}; ///< a third click selects the row
};

} // namespace korvane
