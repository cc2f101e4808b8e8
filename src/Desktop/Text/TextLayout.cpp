#include "Desktop/Text/TextLayout.h"

#include "Desktop/Text/TextSeams.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cassert>
#include <iterator>
#include <utility>

namespace korvane {

namespace {

/// A text up to these limits is laid out as a whole to count its rows, in some milliseconds.
constexpr std::size_t maxExactSize = 16'384;
constexpr std::size_t maxExactNewlines = 1'000;

/// More than any screen shows. Beyond it, all pieces are laid out again when they are needed.
constexpr std::size_t maxPieces = maxExactSize;

/// In bytes: where a piece of a long line ends depends on no more after it.
constexpr std::size_t seamReach = 4 * (seamSearchRange + 2);

} // namespace

void TextLayout::setStyle(const RowStyle& style) {
    if (style == m_style)
        return;
    m_style = style;
    m_unitsPerRow = std::max(1.0, style.width / QFontMetricsF(style.font).averageCharWidth());
    m_pieces.clear();
    m_rows.clear();
}

void TextLayout::setText(const Rope& text) {
    m_preedit.reset();
    m_text = text;
    m_pieces.clear();
    m_rows.clear();
}

void TextLayout::setText(const Rope& text, const TextChange& change) {
    setPreedit(std::nullopt, change.offset);
    // A line feed after a carriage return belongs to the break of the line before.
    const auto first = lineAt(change.offset == 0 ? 0 : change.offset - 1);
    const auto last = lineAt(change.offset + change.removed);
    m_text = text;
    m_rows.clear();
    auto pieces = std::exchange(m_pieces, {});
    for (auto& [start, piece] : pieces) {
        const bool isBefore = start < first.start || start + piece->size() + seamReach <= change.offset;
        if (isBefore)
            m_pieces.emplace_hint(m_pieces.end(), start, std::move(piece));
        else if (start >= last.next && last.next > last.end)
            m_pieces.emplace_hint(m_pieces.end(), start - change.removed + change.inserted, std::move(piece));
    }
}

void TextLayout::setPreedit(std::optional<Preedit> preedit, std::size_t offset) {
    if (!m_preedit && !preedit)
        return;
    if (m_preedit)
        m_pieces.erase(pieceAt(m_preeditOffset).start);
    m_preedit = std::move(preedit);
    m_preeditOffset = offset;
    m_pieces.erase(pieceAt(offset).start);
    m_rows.clear();
}

TextLayout::Line TextLayout::lineAt(std::size_t offset) const {
    const auto byteAt = [&](std::size_t place) { return m_text[place]; };
    if (offset > 0 && offset < m_text.size() && byteAt(offset) == '\n' && byteAt(offset - 1) == '\r')
        --offset;
    const auto newlines = m_text.newlinesBefore(offset);
    Line line{.start = m_text.afterNewline(newlines), .end = m_text.size(), .next = m_text.size()};
    if (newlines == m_text.newlineCount())
        return line;
    line.next = m_text.afterNewline(newlines + 1);
    line.end = line.next - 1;
    switch (byteAt(line.end)) {
    case '\n':
    case '\v':
    case '\f':
        break;
    case '\r':
        if (line.next < m_text.size() && byteAt(line.next) == '\n')
            ++line.next;
        break;
    default: // the next line character has two bytes, the two separators three
        line.end -= byteAt(line.end - 1) == '\xC2' ? 1U : 2U;
    }
    return line;
}

/// Where the piece with the given ordinal begins in a long line: near a multiple of the length of pieces, so
/// that it can be found without those before it.
std::size_t TextLayout::seam(const Line& line, std::size_t unitsBefore, std::size_t ordinal) const {
    const auto length = static_cast<std::size_t>(m_maxPieceLength);
    if (ordinal == 0)
        return line.start;
    const auto target = m_text.byteOffset(unitsBefore + ordinal * length);
    if (target >= line.end)
        return line.end;
    const auto reach = std::min(length / 2, seamSearchRange) * 4;
    const auto from = m_text.summaryBefore(std::max(line.start, target - std::min(target, reach))).bytes;
    const auto to = m_text.summaryBefore(std::min(line.end, target + 4)).bytes;
    const TextPiece around(m_text.string(from, to), 0, false);
    const int unit = around.unitAt(target - from);
    const auto cut = seamIn(around.text(), std::max(unit - m_maxPieceLength / 2, 0), unit);
    return from + around.byteAt(static_cast<int>(cut));
}

/// The piece of `line` with the byte `offset`.
TextLayout::Extent TextLayout::extentAt(const Line& line, std::size_t offset) const {
    Extent extent{.start = line.start, .end = line.end};
    const auto length = static_cast<std::size_t>(m_maxPieceLength);
    if (line.end - line.start > length) {
        const auto unitsBefore = m_text.utf16Offset(line.start);
        auto ordinal = (m_text.utf16Offset(offset) - unitsBefore) / length;
        auto next = seam(line, unitsBefore, ordinal + 1);
        if (next <= offset && next < line.end)
            next = seam(line, unitsBefore, ++ordinal + 1);
        extent = {.start = seam(line, unitsBefore, ordinal), .end = next};
    }
    // Text whose layout takes many times as long is divided further, from here on.
    const TextPiece whole(m_text.string(extent.start, extent.end), 0, false);
    int start = 0;
    for (;;) {
        const auto rest = QStringView(whole.text()).sliced(start);
        const int end = start + static_cast<int>(firstPieceLength(rest, m_maxPieceLength));
        const bool isLast = end == whole.length();
        if (isLast || offset < extent.start + whole.byteAt(end))
            return {.start = extent.start + whole.byteAt(start), .end = extent.start + whole.byteAt(end)};
        start = end;
    }
}

std::shared_ptr<const TextPiece> TextLayout::layOut(const Line& line, const Extent& extent) const {
    const bool endsLine = extent.end == line.end;
    const auto breakSize = endsLine ? line.next - line.end : 0;
    const auto utf8 = m_text.string(extent.start, extent.end);
    const bool hasPreedit = m_preedit && m_preeditOffset >= extent.start &&
                            (m_preeditOffset < extent.end || (endsLine && m_preeditOffset == extent.end));
    auto piece = hasPreedit ? std::make_shared<TextPiece>(utf8, breakSize, endsLine, *m_preedit,
                                                          m_preeditOffset - extent.start)
                            : std::make_shared<TextPiece>(utf8, breakSize, endsLine);
    piece->layOut(m_style);
    return piece;
}

PlacedPiece TextLayout::pieceAt(std::size_t offset) const {
    assert(offset <= m_text.size());
    if (const auto after = m_pieces.upper_bound(offset); after != m_pieces.begin()) {
        const auto& [start, piece] = *std::prev(after);
        const auto end = start + piece->size();
        if (offset < end || (piece->endsLine() && offset == end))
            return {start, piece};
    }
    const auto line = lineAt(offset);
    const auto extent = extentAt(line, std::min(offset, line.end));
    auto piece = layOut(line, extent);
    if (m_pieces.size() >= maxPieces)
        m_pieces.clear();
    m_pieces.insert_or_assign(extent.start, piece);
    return {extent.start, std::move(piece)};
}

std::optional<PlacedPiece> TextLayout::pieceBefore(const PlacedPiece& piece) const {
    if (piece.start == 0)
        return std::nullopt;
    return pieceAt(piece.start - 1);
}

std::optional<PlacedPiece> TextLayout::pieceAfter(const PlacedPiece& piece) const {
    if (piece.piece->endsLine() && piece.piece->breakSize() == 0)
        return std::nullopt;
    return pieceAt(piece.next());
}

PlacedRow TextLayout::rowAt(std::size_t offset) const {
    auto place = pieceAt(offset);
    const int index = place.piece->rowWith(place.piece->unitAt(offset - place.start));
    return {std::move(place), index};
}

std::optional<PlacedRow> TextLayout::rowBefore(const PlacedRow& row) const {
    if (row.index > 0)
        return PlacedRow{row.place, row.index - 1};
    auto piece = pieceBefore(row.place);
    if (!piece)
        return std::nullopt;
    const int last = piece->piece->rowCount() - 1;
    return PlacedRow{std::move(*piece), last};
}

std::optional<PlacedRow> TextLayout::rowAfter(const PlacedRow& row) const {
    if (row.index + 1 < row.place.piece->rowCount())
        return PlacedRow{row.place, row.index + 1};
    auto piece = pieceAfter(row.place);
    if (!piece)
        return std::nullopt;
    return PlacedRow{std::move(*piece), 0};
}

PlacedRow TextLayout::moved(PlacedRow row, std::ptrdiff_t distance) const {
    for (; distance != 0; distance += distance < 0 ? 1 : -1) {
        auto neighbour = distance < 0 ? rowBefore(row) : rowAfter(row);
        if (!neighbour)
            break;
        row = std::move(*neighbour);
    }
    return row;
}

bool TextLayout::countsExactly() const {
    return m_text.size() <= maxExactSize && m_text.newlineCount() <= maxExactNewlines;
}

const std::vector<TextLayout::RowKey>& TextLayout::exactRows() const {
    assert(countsExactly());
    if (!m_rows.empty())
        return m_rows;
    for (auto place = std::optional(pieceAt(0)); place; place = pieceAfter(*place)) {
        for (int index = 0; index < place->piece->rowCount(); ++index)
            m_rows.push_back({place->start, index});
    }
    return m_rows;
}

double TextLayout::rowEstimate(const TextSummary& summary) const {
    return static_cast<double>(summary.newlines) + static_cast<double>(summary.utf16Units) / m_unitsPerRow;
}

std::size_t TextLayout::rowCount() const {
    if (countsExactly())
        return exactRows().size();
    return static_cast<std::size_t>(rowEstimate(m_text.summary())) + 1;
}

std::size_t TextLayout::rowsBefore(const PlacedRow& row) const {
    if (!countsExactly())
        return static_cast<std::size_t>(rowEstimate(m_text.summaryBefore(row.start())));
    const auto& rows = exactRows();
    const RowKey key{row.place.start, row.index};
    return static_cast<std::size_t>(std::ranges::lower_bound(rows, key) - rows.begin());
}

PlacedRow TextLayout::rowAfterRows(std::size_t count) const {
    if (countsExactly()) {
        const auto& rows = exactRows();
        const auto& key = rows[std::min(count, rows.size() - 1)];
        return {pieceAt(key.piece), key.index};
    }
    const auto measure = [this](const TextSummary& summary) { return rowEstimate(summary); };
    return rowAt(m_text.seekLast(measure, static_cast<double>(count)).bytes);
}

} // namespace korvane
