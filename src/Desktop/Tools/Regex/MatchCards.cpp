#include "Desktop/Tools/Regex/MatchCards.h"

#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QPainter>

#include <algorithm>
#include <ranges>

namespace korvane {

using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int matchRow = 32;
constexpr int matchListPadding = 8;
constexpr int matchCountInset = 2;
constexpr int matchCountBottom = 4;
constexpr int matchCardPadding = 2;
constexpr float outlineOpacity = 0.6F;

} // namespace

int MatchCards::padding() {
    return Theme::px(matchListPadding) - Size::panelOutline;
}

QRect MatchCards::countPlace(int width) {
    const auto inset = padding() + Theme::px(matchCountInset);
    return {inset, inset, width - 2 * inset, Theme::lineHeight(Theme::TextStyle::subheadline)};
}

/// Also of the card that would follow the last one.
int MatchCards::cardTop(std::size_t match) const {
    const auto count = countPlace(0);
    const auto first = count.top() + count.height() + Theme::px(matchCountBottom + Size::gapList);
    const auto besideRows = Theme::px(2 * matchCardPadding + Size::gapList);
    return first + firstRow(match) * Theme::px(matchRow) + static_cast<int>(match) * besideRows;
}

/// The match whose card is at `y`, or else the one above it or the first.
std::size_t MatchCards::matchAt(int y) const {
    const auto matches = std::views::iota(std::size_t{0}, m_matches.size());
    const auto below =
        std::ranges::partition_point(matches, [&](std::size_t match) { return cardTop(match) <= y; });
    return below == matches.begin() ? 0 : *below - 1;
}

RowSpan MatchCards::row(int row) const {
    const auto match = m_matches.line(static_cast<std::size_t>(row)).match;
    const auto above = (row - firstRow(match)) * Theme::px(matchRow);
    return {cardTop(match) + Theme::px(matchCardPadding) + above, Theme::px(matchRow)};
}

/// Includes the card's edge, and the count above the first row.
RowSpan MatchCards::surroundings(int row) const {
    const auto margin = Theme::px(matchCardPadding) + padding();
    const auto place = this->row(row);
    const auto top = row == 0 ? 0 : place.top - margin;
    return {top, place.bottom() + margin - top};
}

int MatchCards::rowAt(int y) const {
    const auto match = matchAt(y);
    const auto above = std::max(y - cardTop(match) - Theme::px(matchCardPadding), 0);
    return std::min(firstRow(match) + above / Theme::px(matchRow), firstRow(match + 1) - 1);
}

RowPlaces MatchCards::rows() const {
    return {.of = [cards = *this](int row) { return cards.row(row); },
            .nearest = [cards = *this](int y) { return cards.rowAt(y); },
            .height = cardTop(m_matches.size()) - Theme::px(Size::gapList) + padding(),
            .line = Theme::px(matchRow),
            .surroundings = [cards = *this](int row) { return cards.surroundings(row); },
            .takeGaps = true};
}

void MatchCards::paint(QPainter& painter, const QRect& seen, std::optional<std::size_t> selected) const {
    auto outline = Theme::color(Theme::Role::matchEdge);
    outline.setAlphaF(outlineOpacity);
    for (auto match = matchAt(seen.top()); match < m_matches.size(); ++match) {
        const auto top = cardTop(match);
        if (top > seen.bottom())
            break;
        const auto height = cardTop(match + 1) - Theme::px(Size::gapList) - top;
        const QRect card(padding(), top - seen.top(), seen.width() - 2 * padding(), height);
        paintSurface(painter, card, Theme::px(Size::radiusSmall), Theme::color(Theme::Role::panelFill),
                     match == selected ? outline : QColor());
    }
}

} // namespace korvane
