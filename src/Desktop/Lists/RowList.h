/// A list of rows, of which only the visible ones are ever asked for: it serves sixteen tools, a million tree
/// rows and a million matches alike. The rows are real list items to keyboard and assistive technology, and
/// may have buttons over them.
#pragma once

#include "Desktop/Access/AccessibleRows.h"
#include "Desktop/Access/Editing.h"
#include "Desktop/Lists/RowButtons.h"
#include "Desktop/Lists/RowPlaces.h"
#include "Desktop/Lists/RowTextSelection.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QKeySequence>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QPainter;

namespace korvane {

/// How a row is to be painted.
struct RowState {
    bool isHovered;
    bool isCurrent;                     ///< has the list's keyboard position, and the list has the focus
    RowTextRange selected{};            ///< of its text
    std::optional<std::size_t> caret{}; ///< the caret's offset in its text, if it is in this row and visible
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
    /// Where a row's text begins, in pixels from its left edge: a menu opened by a key is placed there.
    std::function<int(int row)> textLeft = [](int) { return 0; };
    /// Where given, whether a row is unfolded; none for a row that has nothing to unfold.
    std::function<std::optional<bool>(int row)> isExpanded = [](int) { return std::optional<bool>(); };
    /// Whether a row is the chosen one, in a list of which one row is chosen by being pressed.
    std::function<bool(int row)> isChosen = [](int) { return false; };
    std::function<std::string(int row)> toolTip = [](int) { return std::string(); };
    std::function<int()> width = [] {
        return 0;
    }; ///< of the widest row; the list scrolls sideways to show it
    int height = 0; ///< of a row
    /// Where given, where the rows are, which then may differ in height; asked for whenever that may change.
    std::function<RowPlaces()> places = nullptr;
    int topPadding = 0;  ///< free room above the first row and below the last, where no row is ever shown
    int sidePadding = 0; ///< left and right of all rows
    /// Where given, paints what is behind the rows, before these.
    std::function<void(QPainter&)> paintBehind = nullptr;
    std::optional<RowButtonSource> buttons{};
    /// Whether rows without texts are gone through as in any list: the dragged pointer takes the current row
    /// along, typing goes to the row that begins so, a page leaves one row in sight, and a key that goes no
    /// further is left to what is around the list.
    bool goesAsAnyList = true;
};

class RowList final : public QAbstractScrollArea, public AccessibleRows, public CommandTarget {
public:
    explicit RowList(RowSource source);

    /// Told of a click, with where in the row it was, and of Return or Enter on the current row.
    std::function<void(int row, QPoint position)> onClick;
    std::function<void(int row)> onActivate;

    /// Told of the row that a key, a click or assistive technology has made the current one.
    std::function<void(int row)> onCurrentRow;

    /// Told that the rows are elsewhere in the view, for what moves with them.
    std::function<void()> onMove;

    /// Sees a key press first; returns whether it was dealt with.
    std::function<bool(QKeyEvent*)> onKey;

    /// In pixels. Keeps the first visible row in view.
    void setRowHeight(int height);

    /// Has the list ask for everything again. Keeps position and current row as far as they still exist.
    void reload();

    /// The same for rows that have nothing to do with those before: begins at their start.
    void restart();

    /// Has the list ask again where its rows are.
    void layOut();

    int rowCount() const { return m_count; }

    /// Where a row is in the viewport, or outside of what that shows; empty for a row that is not there.
    QRect rowPlace(int row) const;

    /// At a place in the viewport; -1 where there is none.
    int rowAt(QPoint position) const;

    /// The first row in sight and the one behind the last.
    std::pair<int, int> visibleRows() const;

    /// -1 where there are no rows.
    int currentRow() const { return m_current; }

    /// Makes a row the current one, and scrolls to it if it was not.
    void setCurrentRow(int row);

    /// Scrolls until all of a row is visible.
    void showRow(int row);

    /// The buttons over the rows, of a list that has them.
    RowButtons& buttons() const { return *m_buttons; }

    /// Has no row be under the pointer.
    void endHover() { hover(-1); }

    bool answersTo(QKeySequence::StandardKey command) const override;

    bool hasTexts() const { return m_source.texts.has_value(); }

    /// What of the rows' texts is selected; nothing in a list without texts.
    const RowTextSelection& selection() const { return m_selection; }

    /// Selects all texts.
    void selectAll();

    /// Puts the selected text on the clipboard, or else the current row.
    void copy() const;

    QWidget* rowsWidget() override { return this; }

    int accessibleRowCount() const override { return m_count; }

    AccessibleRow accessibleRow(int row) const override;

    int accessibleCurrentRow() const override { return m_current; }

    QRect accessibleRowPlace(int row) const override;
    int accessibleRowAt(QPoint position) const override;

    bool canPressRows() const override { return onActivate != nullptr; }

    void pressRow(int row) override;
    void focusRow(int row) override;

protected:
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    int rowWidth() const;
    void moveParts();
    RowState stateOf(int row) const;
    void hover(int row);
    void makeCurrent(int row);

    int rowsOfPage() const;
    bool moveByKey(int key);
    bool searchFor(const QKeyEvent& typed);
    void searchOn();
    int nearestRow(QPoint position) const;
    RowTextPlace placeAt(QPoint position) const;
    bool isInMargin(QPoint position) const;
    void pressText(QPoint position, RowTextSelection::Unit unit, bool extends);
    void dragTo(QPoint position);
    void followCaret();
    void showCaret();
    QPoint menuPlace(const QContextMenuEvent& event) const;

    RowSource m_source;
    RowTextSelection m_selection;
    RowPlaces m_places{};
    int m_count = 0;
    int m_current = -1;
    int m_hovered = -1;
    int m_pressedRow = -1;
    bool m_isDragging = false;
    bool m_showsCurrent = false;        ///< when the list is shown
    QBasicTimer m_scrolling{};          ///< while the pointer is dragged outside the list
    QElapsedTimer m_sinceDoubleClick{}; ///< a third click selects the row
    QString m_typed{};                  ///< the start of the name that is searched for
    QElapsedTimer m_sinceTyping{};
    QBasicTimer m_searching{}; ///< until the current row or the rows change
    int m_searchedRow = 0;     ///< the next one, counted on from the last row to the first
    int m_unsearchedRows = 0;
    std::unique_ptr<RowButtons> m_buttons{};
};

} // namespace korvane
