/// The marked and the selected ranges of a text area.

#include "Desktop/Text/TextArea.h"

#include <QGlyphRun>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace korvane {

namespace {

// In pixels.
constexpr qreal markMargin = 1; // above and below the background, which leaves a gap between rows
constexpr qreal markRadius = 3;
constexpr qreal minMarkWidth = 2;    // of an empty range
constexpr qreal underlineOffset = 3; // below the baseline
constexpr qreal underlineWidth = 2;
constexpr qreal waveHeight = 2;
constexpr qreal waveLength = 4;

using Extent = std::pair<qreal, qreal>; // left and right, in pixels

bool hasRightToLeftText(QStringView text) {
    return std::ranges::any_of(text, [](QChar character) {
        const auto direction = character.direction();
        return character >= u'\u0590' &&
               (direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirRLE ||
                direction == QChar::DirRLO || direction == QChar::DirRLI);
    });
}

/// The horizontal extents of the characters. In a row with text of both directions they may be in several
/// places.
std::vector<Extent> glyphExtents(const TextPiece& piece, const QTextLine& line, int from, int to) {
    std::vector<Extent> extents;
    for (const auto& run : line.glyphRuns(from, to - from)) {
        const auto positions = run.positions();
        const auto advances = run.rawFont().advancesForGlyphIndexes(run.glyphIndexes());
        for (qsizetype glyph = 0; glyph < positions.size(); ++glyph)
            extents.emplace_back(positions[glyph].x(), positions[glyph].x() + advances[glyph].x());
    }
    for (int character = from; character < to; ++character) {
        if (piece.text()[character] == u'\t') // has no glyph
            extents.emplace_back(line.cursorToX(character, QTextLine::Leading),
                                 line.cursorToX(character, QTextLine::Trailing));
    }
    return extents;
}

/// What of a row is in a range of the text.
struct RowRange {
    int from = 0; ///< in units of the piece
    int to = 0;
    bool continues = false; ///< in the next row
};

std::optional<RowRange> rangeIn(const PlacedRow& row, std::size_t from, std::size_t to) {
    const auto& piece = *row.place.piece;
    const auto start = row.place.start;
    if (to < row.start() || from > row.place.end())
        return std::nullopt;
    const int lineStart = row.line().textStart();
    const int lineEnd = lineStart + row.line().textLength();
    const bool isLastRow = row.index == piece.rowCount() - 1;
    const RowRange range{
        .from = from <= start ? lineStart : std::max(piece.unitAt(from - start), lineStart),
        .to = std::min(piece.unitAt(to - start), lineEnd),
        .continues = isLastRow ? to > row.place.end() || (!piece.endsLine() && to == row.place.end())
                               : to - start >= piece.byteAt(lineEnd),
    };
    return range.from <= range.to ? std::optional(range) : std::nullopt;
}

bool hasRightToLeftText(const PlacedRow& row) {
    const auto line = row.line();
    return hasRightToLeftText(
        QStringView(row.place.piece->text()).sliced(line.textStart(), line.textLength()));
}

std::vector<Extent> extentsIn(const PlacedRow& row, const RowRange& range) {
    const auto line = row.line();
    if (hasRightToLeftText(row))
        return glyphExtents(*row.place.piece, line, range.from, range.to);
    return {{line.cursorToX(range.from), line.cursorToX(range.to)}};
}

/// The extents without the borders inside of them, where a mark is one shape.
std::vector<Extent> joined(std::vector<Extent> extents) {
    std::ranges::sort(extents);
    std::vector<Extent> joined;
    for (const auto& [left, right] : extents) {
        if (!joined.empty() && left <= joined.back().second + 1)
            joined.back().second = std::max(joined.back().second, right);
        else
            joined.emplace_back(left, right);
    }
    return joined;
}

QPainterPath wave(QPointF start, qreal right) {
    QPainterPath path(start);
    for (int half = 1; path.currentPosition().x() < right; ++half) {
        const auto x = start.x() + half * waveLength / 2;
        path.quadTo(x - waveLength / 4, start.y() + (half % 2 == 0 ? -waveHeight : waveHeight), x, start.y());
    }
    return path;
}

bool marksLineOf(const TextMark& mark, const PlacedRow& row) {
    return mark.kind == TextMarkKind::errorLine && rangeIn(row, mark.from, mark.to);
}

} // namespace

void TextArea::setMarks(TextMarkLayer layer, TextMarks marks) {
    auto& current = m_marks[static_cast<std::size_t>(layer)];
    if (current.empty() && marks.empty())
        return;
    current = std::move(marks);
    updateAll();
}

/// The marks that reach into the view, in the order of painting.
std::vector<TextMark> TextArea::visibleMarks() const {
    std::vector<TextMark> visible;
    const auto from = topRow().start();
    const auto to = m_layout.moved(topRow(), visibleRowCount() + 1).place.end();
    for (const auto& layer : m_marks)
        std::ranges::copy(layer.in(from, to), std::back_inserter(visible));
    std::ranges::stable_sort(visible, {}, &TextMark::kind);
    return visible;
}

std::vector<QRect> TextArea::markedRows() const {
    std::vector<QRect> rows;
    const auto marks = visibleMarks();
    int top = viewport()->y();
    for (auto row = std::optional(topRow()); row && top < height(); row = m_layout.rowAfter(*row)) {
        if (std::ranges::any_of(marks, [&](const TextMark& mark) { return marksLineOf(mark, *row); }))
            rows.emplace_back(0, top, width(), m_style.lineHeight);
        top += m_style.lineHeight;
    }
    return rows;
}

void TextArea::paintMark(QPainter& painter, const TextMark& mark, const PlacedRow& row, qreal top) const {
    const auto range = rangeIn(row, mark.from, mark.to);
    const auto found = m_style.marks.find(mark.kind);
    if (!range || found == m_style.marks.end() || (range->from == range->to && mark.from < mark.to))
        return;
    const auto& look = found->second;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (auto [left, right] : joined(extentsIn(row, *range))) {
        right = std::max(right, left + minMarkWidth);
        const QRectF box(QPointF(std::round(left), top + markMargin),
                         QPointF(std::round(right), top + m_style.lineHeight - markMargin));
        const auto line = std::round(top + baselineOf(m_layout.style()) + underlineOffset);
        if (look.outline.isValid()) {
            painter.setPen(look.outline);
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(box.adjusted(-0.5, -0.5, 0.5, 0.5), markRadius, markRadius);
        }
        painter.setPen(Qt::NoPen);
        if (look.background.isValid()) {
            painter.setBrush(look.background);
            painter.drawRoundedRect(box, markRadius, markRadius);
        }
        if (look.underline.isValid())
            painter.fillRect(QRectF(box.left(), line, box.width(), underlineWidth), look.underline);
        if (look.wave.isValid()) {
            painter.setClipRect(QRectF(box.left(), top, box.width(), m_style.lineHeight));
            painter.setBrush(Qt::NoBrush);
            painter.strokePath(wave({box.left(), line + 1}, box.right()), look.wave);
            painter.setClipping(false);
        }
    }
    painter.restore();
}

/// Fills the selected part of a row, to the end of the row if the selection continues in the next one.
void TextArea::paintSelection(QPainter& painter, const PlacedRow& row, qreal top) const {
    const auto range = rangeIn(row, m_selection.from(), m_selection.to());
    if (m_selection.isEmpty() || !range || (range->from == range->to && !range->continues))
        return;
    auto extents = extentsIn(row, *range);
    if (range->continues) {
        const auto& style = m_layout.style();
        const auto end = style.left + style.width;
        if (hasRightToLeftText(row))
            extents.emplace_back(std::max(row.line().naturalTextRect().right(), style.left), end);
        else
            extents.back().second = end;
    }
    for (const auto& [left, right] : extents) {
        painter.fillRect(
            QRectF(QPointF(std::round(left), top), QPointF(std::round(right), top + m_style.lineHeight)),
            m_style.selection);
    }
}

} // namespace korvane
