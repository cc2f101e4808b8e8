/// The part of the texts of a list's rows that is selected, from a place in one row to a place in the same or
/// another one, and the caret, which is at its end. It follows keys and the pointer as a text does, and asks
/// only for the rows that it goes through. It is no widget and paints nothing: a list tells it what happens,
/// and draws what it says.
#pragma once

#include "Desktop/Lists/RowText.h"

#include <QPoint>
#include <QRect>

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

class QKeyEvent;

namespace korvane {

/// The texts of a list's rows, which are numbered from 0, and where they are. Positions are pixels from the
/// row's top left corner.
struct RowTexts {
    /// None for a row without a text, which is left out of what is copied. It holds until the rows change.
    std::function<std::optional<std::string_view>(int row)> text;
    /// The place in the text, in bytes, that is nearest to `position`.
    std::function<std::size_t(int row, QPoint position)> offsetAt;
    /// Where the caret is before the byte at `offset`.
    std::function<QRect(int row, std::size_t offset)> caret;
    /// How wide the part at the left is where the pointer selects whole rows.
    std::function<int()> marginWidth = [] { return 0; };
};

/// A place between two characters.
struct RowTextPlace {
    int row = 0;
    std::size_t offset = 0; ///< in bytes, in the text of the row

    auto operator<=>(const RowTextPlace&) const = default;
};

class RowTextSelection {
public:
    /// What is selected at once, and then again and again while the pointer is dragged.
    enum class Unit { character, word, row };

    RowTextSelection(RowTexts texts, std::function<int()> rowCount);

    bool isEmpty() const { return m_anchor == m_caret; }

    RowTextPlace caret() const { return m_caret; }

    /// The selected part of the text of a row.
    RowTextRange in(int row) const;

    /// What is selected, a line for each row that has a text.
    std::string text() const;

    /// The first and the last row of which something is selected; the caret's where nothing is.
    std::pair<int, int> rows() const;

    void moveTo(RowTextPlace place);
    void selectAll();

    /// Has the pointer pressed at `place`, or with Shift, which extends what is selected.
    void press(RowTextPlace place, Unit unit);
    void extendTo(RowTextPlace place);

    /// Answers a key that moves the caret or, with Shift, selects; returns whether it is one. A page has
    /// `rowsOfPage` rows.
    bool handle(const QKeyEvent& event, int rowsOfPage);

private:
    enum class Move;

    static bool isVertical(Move move);
    static bool isByCharacter(Move move);

    std::string_view textOf(int row) const;
    RowTextPlace lastPlace() const;
    RowTextPlace moved(Move move, int rowsOfPage);
    RowTextPlace next() const;
    RowTextPlace previous() const;
    RowTextPlace nextWord() const;
    RowTextPlace previousWord() const;
    RowTextPlace vertically(int rows);
    std::pair<RowTextPlace, RowTextPlace> unitAt(RowTextPlace place) const;

    RowTexts m_texts;
    std::function<int()> m_rowCount;
    RowTextPlace m_anchor{};
    RowTextPlace m_caret{};
    Unit m_unit = Unit::character;
    std::pair<RowTextPlace, RowTextPlace> m_pressed{}; ///< the unit that the pointer was pressed on
    std::optional<int> m_column{};                     ///< in pixels, what moves from row to row keep to
};

} // namespace korvane
