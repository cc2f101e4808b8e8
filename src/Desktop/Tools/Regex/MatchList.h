/// The list of matches: a count, then a card for each match with a line for it and for each of its groups.
/// Only the visible lines exist as widgets, so a million matches cost as little as ten.
#pragma once

#include "Desktop/Access/AccessibleRows.h"
#include "Desktop/Access/Editing.h"
#include "Desktop/Binding/Reader.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Tools/Regex/MatchRow.h"
#include "Views/Components/CopyButton.h"
#include "Views/Tools/RegexMatches.h"

#include <QAbstractScrollArea>

#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

namespace korvane {

class Label;

class MatchList final : public QAbstractScrollArea, public AccessibleRows, public CommandTarget {
public:
    bool answersTo(QKeySequence::StandardKey command) const override { return command == QKeySequence::Copy; }

    explicit MatchList(Store& store);

    /// Shows `matches` under `count`. Keeps scroll position and current line as far as they still exist.
    void display(const RegexMatches& matches, std::string_view count);

    /// The line at the keyboard's position, from 0.
    std::size_t currentLine() const { return m_current; }

    /// Moves there, scrolling as far as needed.
    void setCurrentLine(std::size_t line);

    /// Puts the text of a line on the clipboard.
    void copy(std::size_t line);

    QSize minimumSizeHint() const override { return {0, 0}; }

    QWidget* rowsWidget() override { return this; }

    int accessibleRowCount() const override;
    AccessibleRow accessibleRow(int row) const override;
    int accessibleCurrentRow() const override;
    QRect accessibleRowPlace(int row) const override;
    int accessibleRowAt(QPoint position) const override;

    bool canPressRows() const override { return true; }

    void pressRow(int row) override;
    void focusRow(int row) override;

protected:
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int cardTop(std::size_t match) const;
    int lineTop(std::size_t line) const;
    std::size_t matchAt(int y) const;
    std::size_t lineAt(int y) const;
    std::size_t linesOfPage() const;
    int scrollOffset() const;

    void layOut();
    void placeRows();
    void showLine(MatchRow& row, std::size_t line, int headingWidth);
    void addRow();

    Store& m_store;
    RegexMatches m_matches{};
    Label* m_count;
    std::vector<MatchRow*> m_rows; ///< a line is shown by the row at the remainder of its number
    std::size_t m_current = 0;
    std::size_t m_copiedLine = 0;
    std::shared_ptr<CopyButton> m_copied; ///< what the button of the line copied last shows
};

/// The list in its panel. It grows with the room there is.
QWidget* matchList(Store& store, const Reader<RegexMatches>& matches, const Reader<std::string>& count);

/// The panel in the place of a list without matches, around what it says. It grows like the list.
QWidget* matchPrompt(std::initializer_list<Item> prompts);

} // namespace korvane
