/// Where the matches of a regular expression are in their list: below the line that counts them a card for
/// each, and in it a row for the match and for each of its groups. Nothing is kept for a match, so a million
/// of them cost as little as ten.
#pragma once

#include "Desktop/Lists/RowPlaces.h"
#include "Views/Tools/RegexMatches.h"

#include <QRect>

#include <cstddef>
#include <optional>
#include <utility>

class QPainter;

namespace korvane {

/// All places are in pixels from the top of what the list scrolls. The most pieces that a search collects
/// keep them within an int.
class MatchCards {
public:
    explicit MatchCards(RegexMatches matches) : m_matches(std::move(matches)) {}

    /// Left and right of the cards, and below the last; the panel's outline is outside it.
    static int padding();

    /// Where the count is in a list of that width.
    static QRect countPlace(int width);

    RowPlaces rows() const;

    /// Paints the cards behind the rows that are within `seen`, which is at the origin of the painter. The
    /// card of the selected match has an outline.
    void paint(QPainter& painter, const QRect& seen, std::optional<std::size_t> selected) const;

private:
    int cardTop(std::size_t match) const;
    std::size_t matchAt(int y) const;

    int firstRow(std::size_t match) const { return static_cast<int>(m_matches.firstLine(match)); }

    RowSpan row(int row) const;
    RowSpan surroundings(int row) const;
    int rowAt(int y) const;

    RegexMatches m_matches;
};

} // namespace korvane
